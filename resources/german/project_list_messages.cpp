#include "resources/project_list_message_numbers.h"

#include "resources/catalogue.h"

namespace ryv::german {

namespace {

// clang-format off
constexpr Message texts[] = {
    {message::projectListOpen, u"Projekt öffnen..."},
    {message::projectListNew, u"Neues Projekt..."},
    {message::projectListRecent, u"Zuletzt verwendete Projekte..."},
    {message::projectListTooltip, u"Das aktive Projekt. Wählen Sie ein anderes, um es zu aktivieren."},
    {message::recentProjectsTitle, u"Zuletzt verwendete Projekte"},
    {message::noRecentProject, u"(keine)"},
    {message::pinRecentProjects, u"&Anheften oder lösen"},
    {message::removeMissingProjects, u"&Fehlende aus der Liste entfernen"},
    {message::moreRecentProjects, u"&Weitere..."},
    {message::projectNotPinned,
        u"%s kann nicht angeheftet werden. Es sind bereits dreißig Projekte angeheftet, oder die Einstellungen Ihres "
        u"Profils können nicht geschrieben werden."},
    {message::detailsNetworkPath, u"Netzwerkpfad:"},
};
// clang-format on

static_assert(isAscending(texts));

} // namespace

std::span<const Message> projectListMessages() noexcept {
    return texts;
}

} // namespace ryv::german
