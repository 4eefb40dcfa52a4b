// Numbers of the texts of the list of open projects and of recent ones; the rules are those of
// resources/message_numbers.h. From 3400 on.
#pragma once

namespace ryv::message {

inline constexpr int projectListOpen = 3400;
inline constexpr int projectListNew = 3401;
inline constexpr int projectListRecent = 3402;
inline constexpr int projectListTooltip = 3403;
inline constexpr int recentProjectsTitle = 3404;
inline constexpr int noRecentProject = 3405;
inline constexpr int pinRecentProjects = 3406; ///< a menu of all of them, with marks
inline constexpr int removeMissingProjects = 3407;
inline constexpr int moreRecentProjects = 3408; ///< those that the package's own list has
inline constexpr int projectNotPinned = 3409;   ///< file
inline constexpr int detailsNetworkPath = 3410; ///< stands in front of a path

} // namespace ryv::message
