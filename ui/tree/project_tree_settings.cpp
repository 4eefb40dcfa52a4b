// Commands of the project tree on the settings of drawings.

#include "base/format.h"
#include "base/paths.h"
#include "resources/messages.h"
#include "resources/setting_message_numbers.h"
#include "ui/dialogs/work/settings_work.h"
#include "ui/tree/project_tree.h"
#include "ui/tree/row_name.h"

namespace ryv {

namespace {

/// Those that are selected or lie below what is selected, of the context row's project.
void applyToSelected(const CProjectTree& tree) {
    const TreeItem* const project = CProjectTree::GetProjectItemFromItem(contextRow(tree));
    if (project)
        applyProjectDefaults(CProjectTree::GetProjectOfItem(project), tree.GetAllSelectedDwgs(project));
}

} // namespace

void CProjectTree::ProjectMenuExceptionList() {
    listExceptions(GetProjectOfItem(contextRow(*this)));
}

void CProjectTree::PropsMenuApplyProjDefaults() {
    applyToSelected(*this);
}

void CProjectTree::DrawingPropsMenuApplyProjDefaults() {
    applyToSelected(*this);
}

void CProjectTree::DrawingPropsMenuCopy() {
    const _itemdatastruct* const record = GetItemData(contextRow(*this));
    const CString drawing = record ? CString(record->key) : CString(); // the row may go meanwhile
    if (record && copySettings(drawing))
        notice().tell(format(messageText(message::settingsCopied), {paths::findFileName(drawing)}));
}

void CProjectTree::DrawingPropsMenuPaste() {
    pasteSettings(GetAllSelectedDwgs());
}

} // namespace ryv
