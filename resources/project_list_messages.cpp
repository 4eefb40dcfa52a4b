#include "resources/project_list_message_numbers.h"

#include "resources/catalogue.h"

namespace ryv::english {

namespace {

// clang-format off
constexpr Message texts[] = {
    {message::projectListOpen, u"Open Project..."},
    {message::projectListNew, u"New Project..."},
    {message::projectListRecent, u"Recent Projects..."},
    {message::projectListTooltip, u"The active project. Choose another one to make it active."},
    {message::recentProjectsTitle, u"Recent Projects"},
    {message::noRecentProject, u"(none)"},
    {message::pinRecentProjects, u"&Pin or Unpin"},
    {message::removeMissingProjects, u"&Remove Missing from List"},
    {message::moreRecentProjects, u"&More..."},
    {message::projectNotPinned, u"%s cannot be pinned. Thirty projects are pinned already, or the settings of your profile cannot be written."},
    {message::detailsNetworkPath, u"Network path:"},
};
// clang-format on

static_assert(isAscending(texts));

} // namespace

std::span<const Message> projectListMessages() noexcept {
    return texts;
}

} // namespace ryv::english
