// Menus, keys and clicks: how the commands of the project tree are given.

#include "bridge/command_strings.h"
#include "bridge/platform.h"
#include "manager/shown_messages.h"
#include "resources/message_numbers.h"
#include "resources/messages.h"
#include "toolkit/tree_item_watch.h"
#include "ui/tree/opening_problem.h"
#include "ui/tree/row_name.h"
#include "ui/tree/tree_commands.h"

#include <algorithm>

namespace ryv {

namespace {

struct MenuOfRow {
    TreeMenu menu;
    CStringView name;
};

MenuOfRow menuOf(const TreeItem* row) {
    switch (CProjectTree::GetItemType(row)) {
    case TreeItemType::project:
        return {TreeMenu::project, u"project_menu"};
    case TreeItemType::subfolder:
        return {TreeMenu::subfolder, u"subfolder_menu"};
    case TreeItemType::drawing:
        return {TreeMenu::drawing, u"drawing_menu"};
    case TreeItemType::none:
        break;
    }
    return {TreeMenu::emptyArea, u"empty_area_menu"};
}

bool isMixed(const CProjectTree& tree) {
    const std::vector<TreeItem*>& rows = tree.selection();
    return std::any_of(rows.begin(), rows.end(), [&rows](const TreeItem* row) {
        return CProjectTree::GetItemType(row) != CProjectTree::GetItemType(rows.front());
    });
}

/// Removing goes by another number when several kinds of rows are removed.
int numberFor(const CProjectTree& tree, int id) {
    const bool removes = id == tree_command::removeDrawing || id == tree_command::removeSubfolder;
    return removes && isMixed(tree) ? tree_command::removeMixed : id;
}

void addCommands(Menu& menu, const CProjectTree& tree, std::span<const int> ids) {
    for (const int id : ids) {
        const TreeCommand* const command = findTreeCommand(numberFor(tree, id));
        if (command)
            menu.add(command->id, CString(messageText(command->text))).enabled = command->isEnabled(tree);
        else if (id == publishSubmenu)
            addCommands(
                menu.addSubmenu(CString(messageText(message::commandPublish))), tree, publishCommands());
        else
            menu.addSeparator();
    }
}

std::vector<RowName> namesOf(const std::vector<TreeItem*>& rows) {
    std::vector<RowName> names;
    std::transform(rows.begin(), rows.end(), std::back_inserter(names), rowNameOf);
    return names;
}

} // namespace

std::unique_ptr<Menu> CProjectTree::CreateContextMenu() {
    const MenuOfRow its = menuOf(contextRow(*this));
    auto menu = std::make_unique<Menu>(CString(its.name));
    addCommands(*menu, *this, commandsOf(its.menu));
    if (its.menu == TreeMenu::drawing)
        menu->setDefaultItem(tree_command::openDrawing);
    return menu;
}

bool CProjectTree::runCommand(int id) {
    const TreeCommand* const command = findTreeCommand(id);
    if (!command || !command->isEnabled(*this))
        return false;
    const AtWork work = atWork();
    if (editedItem()) { // rows are not brought up to date meanwhile
        finishEdit(std::nullopt);
        if (!command->isEnabled(*this))
            return false;
    }
    notice_.clearUnlessOffering();
    (this->*command->handler)();
    return true;
}

/// The choice was made for the rows that were selected when the menu came up.
void CProjectTree::onContextMenu(TreeItem*, TreePoint point) {
    const AtWork work = atWork();
    const std::vector<RowName> before = namesOf(selection());
    const RowName context = rowNameOf(contextRow(*this));
    const std::unique_ptr<Menu> menu = CreateContextMenu();
    const int chosen = menu ? platform().ui->popupMenu(*menu, {point.x, point.y}) : 0;
    if (chosen != 0 && namesOf(selection()) == before && rowNameOf(contextRow(*this)) == context)
        runCommand(chosen);
}

/// Commands are about what is selected, which a row that was clicked with a key held down need not be. A
/// command that waits for its input would take the host's open command for an answer.
void CProjectTree::onDoubleClick(TreeItem& item) {
    if (GetItemType(&item) != TreeItemType::drawing)
        return TreeControl::onDoubleClick(item);
    const AtWork work = atWork();
    const TreeItemWatch watch(*this, item);
    if (!item.selected())
        click(&item);
    else if (focus() != &item)
        setFocus(&item);
    if (!watch.item())
        return;
    if (!isQuiescent()) {
        showMessage(
            {message::currentDrawingBusy, message::currentDrawingBusyTitle, MessageIcon::warning}, {});
        return;
    }
    const CString drawing = GetItemData(watch.item())->key;
    if (runCommand(tree_command::openDrawing))
        return;
    if (CString problem = problemOfOpening(drawing); !problem.empty())
        notice_.tell(std::move(problem));
}

bool CProjectTree::onKey(TreeKeyCode code, Modifiers modifiers) {
    if (modifiers == Modifiers{.alt = true})
        return moveByKey(code);
    TreeItem* const row = contextRow(*this);
    if (!row || modifiers != Modifiers())
        return false;
    if (code == TreeKeyCode::remove)
        return runCommand(numberFor(*this, tree_command::removeDrawing));
    if (code != TreeKeyCode::enter)
        return false;
    if (GetItemType(row) == TreeItemType::drawing)
        onDoubleClick(*row);
    else
        expand(*row, !row->expanded());
    return true;
}

} // namespace ryv
