#include "resources/task_dialog_texts.h"

#include <algorithm>

namespace ryv {

namespace {

constexpr CStringView title = u"Project Manager";

constexpr TaskDialogButtonText onlyOk[] = {{task_button::ok, u"OK"}};

constexpr TaskDialogButtonText yesOrNo[] = {{task_button::yes, u"Yes"}, {task_button::no, u"No"}};

constexpr TaskDialogButtonText sortOrders[] = {
    {task_button::subfoldersFirst, u"Subfolders first, on this level only"},
    {task_button::subfoldersFirstBelow, u"Subfolders first, on this level and all levels below"},
    {task_button::drawingsFirst, u"Drawings first, on this level only"},
    {task_button::drawingsFirstBelow, u"Drawings first, on this level and all levels below"},
    {task_button::cancel, u"Cancel"},
};

// What cannot be taken back is not what Enter chooses.
// clang-format off
constexpr TaskDialogText dialogs[] = {
    {u"RyvPageMan.BrowseOpenLastProjSameName", title,
        u"A project named {ProjectName} is open already.",
        u"Two projects of the same name cannot be open together, and the only open project cannot be "
        u"replaced. Open or create a project of another name first, and try again.",
        onlyOk, task_button::ok, u"ProjectName"},
    {u"RyvPageMan.FlattenStructure", title,
        u"Do you want to remove all subfolders of the project?",
        u"The drawings stay in the project and move to its top level, in the order in which they are shown. "
        u"The files on disk stay where they are.",
        yesOrNo, task_button::no, {}},
    {u"RyvPageMan.InvalidCharForSubfolderName", title,
        u"The name holds a character that subfolder names cannot have.",
        u"Give the subfolder a name without any of these characters:\n{InvalidChars}",
        onlyOk, task_button::ok, u"InvalidChars"},
    {u"RyvPageMan.MoveSubfoldersAfterSorting", title,
        u"What should come first after sorting?",
        u"There are subfolders beside the drawings. Subfolders keep the order that they have among themselves.",
        sortOrders, task_button::subfoldersFirst, {}},
    {u"RyvPageMan.RemoveSubfoldersAndDrawings", title,
        u"Do you want to remove these items from the project?",
        u"{ItemsToRemove}\nDrawings below a subfolder are removed with it. The files on disk are not deleted.",
        yesOrNo, task_button::no, u"ItemsToRemove"},
    {u"RyvPageMan.RemoveSubfoldersAndDrawingsLinkBreak", title,
        u"Do you want to remove these items and break their links?",
        u"{ItemsToRemove}\nThe project is linked to another tool, and what is removed loses its link. "
        u"Drawings below a subfolder are removed with it. The files on disk are not deleted.",
        yesOrNo, task_button::no, u"ItemsToRemove"},
    {u"RyvPageMan.RenameDrawingNoFileName", title,
        u"A drawing needs a file name.",
        u"Type a name that is not empty and does not begin with a full stop.",
        onlyOk, task_button::ok, {}},
    {u"RyvPageMan.ReplaceDrawingLinkBreak", title,
        u"Do you want to replace the drawing and break its link?",
        u"The project is linked to another tool, and the drawing that you replace loses its link. "
        u"Its file on disk is not deleted.",
        yesOrNo, task_button::no, {}},
    {u"RyvPageMan.SubfolderNameExists", title,
        u"There is a subfolder of this name already.",
        u"Give the subfolder another name. Names that differ only in case are the same.",
        onlyOk, task_button::ok, {}},
    {u"RyvPageMan.SubfolderNotMoved", title,
        u"Some subfolders were not moved.",
        u"There are subfolders of the same names in that place already. Rename these and move them again:\n"
        u"{Subfolders}",
        onlyOk, task_button::ok, u"Subfolders"},
};
// clang-format on

/// The value that counts, or null.
const CString* valueOf(CStringView name, const std::vector<std::pair<CString, CString>>& values) {
    const auto hit =
        std::find_if(values.rbegin(), values.rend(), [name](const auto& each) { return each.first == name; });
    return hit == values.rend() ? nullptr : &hit->second;
}

} // namespace

std::span<const TaskDialogText> taskDialogTexts() noexcept {
    return dialogs;
}

const TaskDialogText* findTaskDialogText(CStringView id) noexcept {
    const auto hit = std::find_if(std::begin(dialogs), std::end(dialogs),
        [id](const TaskDialogText& dialog) { return dialog.id == id; });
    return hit == std::end(dialogs) ? nullptr : hit;
}

CString fillVariables(CStringView text, const std::vector<std::pair<CString, CString>>& values) {
    CString filled;
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t end = text[i] == u'{' ? text.find(u'}', i) : CStringView::npos;
        const CString* const value =
            end == CStringView::npos ? nullptr : valueOf(text.substr(i + 1, end - i - 1), values);
        if (value)
            filled += *value;
        else
            filled += text[i];
        i = value ? end + 1 : i + 1;
    }
    return filled;
}

} // namespace ryv
