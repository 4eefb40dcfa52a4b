#include "resources/task_dialog_texts.h"

#include "base/text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace ryv::test {
namespace {

/// The names in braces, each once; what stands in unpaired braces is kept, so that it is found out.
std::string namesIn(const TaskDialogText& dialog) {
    std::set<CString> names;
    for (const CStringView text : {dialog.title, dialog.instruction, dialog.content})
        for (std::size_t i = text.find(u'{'); i != CStringView::npos; i = text.find(u'{', i + 1))
            names.emplace(text.substr(i + 1, text.find(u'}', i) - i - 1));
    std::string line;
    for (const CString& name : names)
        line += (line.empty() ? "" : ",") + toAscii(name);
    return line;
}

std::string buttonsOf(const TaskDialogText& dialog) {
    std::string line;
    for (const TaskDialogButtonText& button : dialog.buttons)
        line += (line.empty() ? "" : ",") + toAscii(toText(button.id)) + (button.text.empty() ? "?" : "");
    return line;
}

struct Case {
    const char* id;
    const char* variable;
    const char* buttons;
};

TEST(TaskDialogTexts, eachDialog_hasItsVariableAndItsButtons) {
    const Case cases[] = {{"BrowseOpenLastProjSameName", "ProjectName", "1"}, {"FlattenStructure", "", "6,7"},
        {"InvalidCharForSubfolderName", "InvalidChars", "1"},
        {"MoveSubfoldersAfterSorting", "", "1001,1002,1003,1004,2"},
        {"RemoveSubfoldersAndDrawings", "ItemsToRemove", "6,7"},
        {"RemoveSubfoldersAndDrawingsLinkBreak", "ItemsToRemove", "6,7"},
        {"RenameDrawingNoFileName", "", "1"}, {"ReplaceDrawingLinkBreak", "", "6,7"},
        {"SubfolderNameExists", "", "1"}, {"SubfolderNotMoved", "Subfolders", "1"}};
    for (const Case& each : cases) {
        const TaskDialogText* const dialog =
            findTaskDialogText(fromAscii("RyvPageMan.") + fromAscii(each.id));
        ASSERT_TRUE(dialog) << each.id;
        EXPECT_EQ(toAscii(dialog->variable), each.variable) << each.id;
        EXPECT_EQ(namesIn(*dialog), each.variable) << each.id;
        EXPECT_EQ(buttonsOf(*dialog), each.buttons) << each.id;
    }
    EXPECT_EQ(findTaskDialogText(u"RyvPageMan.subfolderNameExists"), nullptr);
    EXPECT_EQ(findTaskDialogText(u""), nullptr);
}

TEST(TaskDialogTexts, everyDialog_isComplete) {
    for (const TaskDialogText& dialog : taskDialogTexts()) {
        EXPECT_EQ(findTaskDialogText(dialog.id), &dialog) << toAscii(dialog.id);
        EXPECT_TRUE(!dialog.title.empty() && !dialog.instruction.empty() && !dialog.content.empty())
            << toAscii(dialog.id);
        EXPECT_TRUE(std::any_of(dialog.buttons.begin(), dialog.buttons.end(),
            [&dialog](const TaskDialogButtonText& button) { return button.id == dialog.defaultButton; }))
            << toAscii(dialog.id);
    }
}

TEST(TaskDialogTexts, variables_areFilledInOnce) {
    const std::vector<std::pair<CString, CString>> values{
        {u"A", u"old"}, {u"B", u"{A}"}, {u"A", u"new"}, {u"Unused", u"x"}};
    const std::pair<const char16_t*, const char*> cases[] = {{u"{A}", "new"}, {u"<{A}{A}>", "<newnew>"},
        {u"{B}", "{A}"}, {u"{a}", "{a}"}, {u"{C} {A}", "{C} new"}, {u"{{A}", "{new"}, {u"{A", "{A"},
        {u"}{}", "}{}"}, {u"", ""}};
    for (const auto& [text, filled] : cases)
        EXPECT_EQ(toAscii(fillVariables(text, values)), filled);
}

} // namespace
} // namespace ryv::test
