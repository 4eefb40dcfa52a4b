#include "ui/tree/tree_commands.h"

#include "resources/message_numbers.h"
#include "ui/tree/tree_command_rules.h"

#include <algorithm>
#include <iterator>

namespace ryv {

namespace {

using Tree = CProjectTree;
using namespace tree_rules;

constexpr TreeCommand commands[] = {
    {201, message::commandActivate, isInactiveProject, &Tree::OnProjectMenuActivate},
    {209, message::commandCloseProject, isClosableProject, &Tree::OnProjectMenuClose},
    {203, message::commandDescriptions, isProject, &Tree::OnProjectMenuDescriptions},
    {210, message::commandTitleBlocks, isListOfActiveProject, &Tree::OnProjectMenuTitleBlockUpdate},
    {211, message::commandReport, isListOfActiveProject, &Tree::OnProjectMenuDrawingListReport},
    {212, message::commandAddDrawings, isProject, &Tree::OnProjectMenuAddDrawings},
    {244, message::commandAddActiveDrawing, isCurrentDrawingMissing, &Tree::OnProjectMenuAddActiveDrawing},
    {214, message::commandRemoveDrawings, isProjectWithDrawings, &Tree::OnProjectMenuRemoveDrawings},
    {215, message::commandTaskList, isProjectWithTasks, &Tree::OnProjectMenuTaskList},
    {238, message::commandPlot, isListOfActiveProject, &Tree::OnProjectMenuPubPlotMenuPlot},
    {240, message::commandPublishFile, isListOfActiveProject, &Tree::OnProjectMenuPubPlotMenuPubFile},
    {241, message::commandArchive, isListOfActiveProject, &Tree::OnProjectMenuPubPlotMenuZip},
    {219, message::commandSettings, isProject, &Tree::OnProjectMenuSettings},
    {250, message::commandExceptionList, isProjectWithDrawings, &Tree::OnProjectMenuExceptionList},
    {217, message::commandProperties, isActiveProject, &Tree::OnProjectMenuProperties},
    {255, message::commandNewDrawing, isActiveProject, &Tree::OnProjectMenuNewDrawing},
    {1143, message::commandFlatten, isProjectWithSubfolders, &Tree::OnProjectMenuFlattenStructure},
    {1145, message::commandLowerCase, areContainersWithDrawings, &Tree::OnProjectMenuFlipFileNameLowerCase},
    {1146, message::commandUpperCase, areContainersWithDrawings, &Tree::OnProjectMenuFlipFileNameUpperCase},
    {1147, message::commandSort, areContainersWithItems, &Tree::OnProjAndSubfolderMenuSort},
    {1137, message::commandNewSubfolder, isContainer, &Tree::OnMenuAddSubFolder},
    {1144, message::commandNewSubfolder, isContainer, &Tree::OnMenuAddSubFolder},
    {1131, message::commandExpandAll, isContainer, &Tree::OnMenuExpandAll},
    {1141, message::commandExpandAll, isContainer, &Tree::OnMenuExpandAll},
    {1132, message::commandCollapseAll, isContainer, &Tree::OnMenuCollapseAll},
    {1142, message::commandCollapseAll, isContainer, &Tree::OnMenuCollapseAll},
    {1135, message::commandNewDrawing, isSubfolderOfActiveProject, &Tree::OnSubfolderMenuNewDrawing},
    {1136, message::commandAddDrawings, isSubfolder, &Tree::OnSubfolderMenuAddDrawings},
    {1140, message::commandApplyDefaults, isSubfolderWithDrawings, &Tree::OnPropsMenuApplyProjDefaults},
    {tree_command::openDrawing, message::commandOpen, isUsableDrawing, &Tree::OnDrawingMenuOpen},
    {205, message::commandCloseDrawing, isOpenDrawing, &Tree::OnDrawingMenuClose},
    {207, message::commandCopyTo, isOneUsableDrawing, &Tree::OnDrawingMenuCopyTo},
    {tree_command::removeDrawing, message::commandRemove, isRemovable,
        &Tree::OnDrawingAndSubfolderMenuRemove},
    {tree_command::removeSubfolder, message::commandRemove, isRemovable,
        &Tree::OnDrawingAndSubfolderMenuRemove},
    {tree_command::removeMixed, message::commandRemove, isRemovable, &Tree::OnDrawingAndSubfolderMenuRemove},
    {226, message::commandReplace, isOneDrawing, &Tree::OnDrawingMenuReplace},
    {tree_command::renameDrawing, message::commandRename, isOneUsableDrawing,
        &Tree::OnDrawingAndSubfolderMenuRename},
    {tree_command::renameSubfolder, message::commandRename, isOneSubfolder,
        &Tree::OnDrawingAndSubfolderMenuRename},
    {245, message::commandProperties, isOneUsableDrawing, &Tree::OnDrawingMenuProperties},
    {1156, message::commandApplyDefaults, isUsableDrawing, &Tree::OnDrawingPropsMenuApplyProjDefaults},
    {247, message::commandCopySettings, isOneUsableDrawing, &Tree::OnDrawingPropsMenuCopy},
    {248, message::commandPasteSettings, isUsableDrawingToPasteTo, &Tree::OnDrawingPropsMenuPaste},
    {249, message::commandCompareSettings, isOneUsableDrawing, &Tree::OnDrawingPropsMenuDrawCompare},
    {251, message::commandNewProject, always, &Tree::OnEmptySelectMenuNewProject},
    {259, message::commandOpenProject, always, &Tree::OnEmptySelectMenuOpenProject},
    {252, message::commandNewDrawing, hasActiveProject, &Tree::OnEmptySelectMenuNewDrawing},
};

constexpr int line = 0;
constexpr int emptyAreaMenu[] = {251, 259, line, 252};
constexpr int projectMenu[] = {201, 209, line, 203, 210, 211, line, 255, 212, 244, 214, 1144, line, 1147,
    1143, 1145, 1146, line, 215, publishSubmenu, line, 1131, 1132, line, 219, 250, 217};
constexpr int subfolderMenu[] = {
    1135, 1136, 1137, line, 1147, line, 1138, 1139, line, 1140, line, 1141, 1142};
constexpr int drawingMenu[] = {202, 205, 207, line, 227, 226, 225, line, 245, 1156, 247, 248, 249};
constexpr int publishMenu[] = {238, 240, 241};

} // namespace

std::span<const TreeCommand> treeCommands() noexcept {
    return commands;
}

const TreeCommand* findTreeCommand(int id) noexcept {
    const auto hit = std::find_if(
        std::begin(commands), std::end(commands), [id](const TreeCommand& each) { return each.id == id; });
    return hit == std::end(commands) ? nullptr : hit;
}

std::span<const int> commandsOf(TreeMenu menu) noexcept {
    switch (menu) {
    case TreeMenu::project:
        return projectMenu;
    case TreeMenu::subfolder:
        return subfolderMenu;
    case TreeMenu::drawing:
        return drawingMenu;
    case TreeMenu::emptyArea:
        break;
    }
    return emptyAreaMenu;
}

std::span<const int> publishCommands() noexcept {
    return publishMenu;
}

} // namespace ryv
