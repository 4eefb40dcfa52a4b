#include "host/command_table.h"

#include "bridge/platform.h"
#include "host/commands.h"

namespace ryv {

namespace {

constexpr CStringView group = u"RYVPageMan";
constexpr CStringView copyToGroup = u"PROJMAN_COMMANDS";
constexpr CStringView copyToName = u"RYNAVCOPYTO";

constexpr std::uint32_t modal = CommandFlags::modal;
constexpr std::uint32_t transparent = CommandFlags::transparent;
constexpr std::uint32_t outside = CommandFlags::transparent | CommandFlags::applicationContext;

constexpr CommandTableEntry table[] = {
    {group, u"_TestPM", u"TestPM", outside, commands::lockActiveProject},
    {group, u"_TestPM2", u"TestPM2", outside, commands::doNothing},
    {group, u"Ryvnav", u"Ryvnav", transparent, commands::showPalettes},
    {group, u"Ryvhidenav", u"Ryvhidenav", transparent, commands::hidePalettes},
    {group, u"_RyvProjectProps", u"RyvProjectProps", modal, commands::projectProperties},
    {group, u"_RyvNewProject", u"RyvNewProject", modal, commands::newProject},
    {group, u"_RyvDrawingProps", u"RyvDrawingProps", modal, commands::drawingProperties},
    {group, u"_RyvNewDrawing", u"RyvNewDrawing", modal, commands::newDrawing},
    {group, u"_RyvContinueNewDrawing", u"RyvContinueNewDrawing", modal, commands::continueNewDrawing},
    {group, u"_RyvCompareDtoP", u"RyvCompareDtoP", modal, commands::compareDrawingToProject},
    {group, u"_TestModal", u"TestModal", modal, commands::testModal},
    {group, u"RYPROJECT", u"RYPROJECT", outside, commands::showPalettes},
};

} // namespace

std::span<const CommandTableEntry> commandTable() noexcept {
    return table;
}

void addCopyToCommand() {
    platform().host.commands->addCommand({CString(copyToGroup), CString(copyToName), CString(copyToName),
        CommandFlags::modal, commands::copyDrawingsTo});
}

void removeCopyToCommand() {
    platform().host.commands->removeGroup(copyToGroup);
}

} // namespace ryv
