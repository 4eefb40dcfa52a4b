// The images that stand beside rows of lists and beside entries of menus. Views know what they look like; a
// button has its image by its name (toolkit/button.h).
#pragma once

namespace ryv::images {

inline constexpr int none = 0;
inline constexpr int project = 1;
inline constexpr int ownLock = 2;  ///< a project that the user has locked
inline constexpr int locked = 3;   ///< a project that somebody else has locked
inline constexpr int readOnly = 4; ///< a project that cannot be written
inline constexpr int missing = 5;  ///< a file that is not there
inline constexpr int pinned = 6;
inline constexpr int newProject = 7;
inline constexpr int openProject = 8;
inline constexpr int recent = 9;

} // namespace ryv::images
