#include "embedded/services/task_dialog_catalogue.h"

#include "base/text.h"
#include "tests/support/memory_files.h"
#include "tests/support/text.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <set>

namespace drafta {
namespace {

using ryv::CString;
using ryv::TaskDialogRequest;

const std::string product = RYV_TEST_DATA "/../../../resources/TaskDialogs.xaml";
const std::string productInGerman = RYV_TEST_DATA "/../../../resources/TaskDialogs.de.xaml";

class TaskDialogCatalogueTest : public ::testing::Test {
protected:
    ryv::test::MemoryFiles files;
    std::string told;
    TaskDialogCatalogue catalogue{files, u"\\s\\TaskDialogs.xaml",
        [this](ryv::CStringView line) { told += ryv::toAscii(line) + "\n"; }};

    void put(const std::string& content) { files.put(u"\\s\\TaskDialogs.xaml", content); }
};

/// The names in braces, each once; what stands in unpaired braces is kept, so that it is found out.
std::string namesIn(const TaskDialogRequest& dialog) {
    std::set<CString> names;
    for (const CString& text : {dialog.title, dialog.instruction, dialog.content})
        for (std::size_t i = text.find(u'{'); i != CString::npos; i = text.find(u'{', i + 1))
            names.insert(text.substr(i + 1, text.find(u'}', i) - i - 1));
    std::string line;
    for (const CString& name : names)
        line += (line.empty() ? "" : ",") + ryv::toAscii(name);
    return line;
}

std::string buttonsOf(const TaskDialogRequest& dialog) {
    std::string line;
    for (const ryv::TaskDialogButton& button : dialog.buttons)
        line += (line.empty() ? "" : ",") + std::to_string(button.id);
    return line;
}

TEST_F(TaskDialogCatalogueTest, productsDialogs_haveTheirVariablesAndButtons) {
    put(ryv::test::readBytes(product));
    const std::vector<std::array<const char*, 4>> wanted = {
        {"BrowseOpenLastProjSameName", "ProjectName", "1", "1"}, {"FlattenStructure", "", "6,7", "7"},
        {"InvalidCharForSubfolderName", "InvalidChars", "1", "1"},
        {"MoveSubfoldersAfterSorting", "", "1001,1002,1003,1004,2", "1001"},
        {"RemoveSubfoldersAndDrawings", "ItemsToRemove", "6,7", "7"},
        {"RemoveSubfoldersAndDrawingsLinkBreak", "ItemsToRemove", "6,7", "7"},
        {"RenameDrawingNoFileName", "", "1", "1"}, {"ReplaceDrawingLinkBreak", "", "6,7", "7"},
        {"SubfolderNameExists", "", "1", "1"}, {"SubfolderNotMoved", "Subfolders", "1", "1"}};
    ASSERT_EQ(catalogue.dialogs().size(), wanted.size()) << told;
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        const TaskDialogRequest& dialog = catalogue.dialogs()[i];
        const auto [id, variable, buttons, usual] = wanted[i];
        EXPECT_EQ(ryv::toAscii(dialog.id), std::string("RyvPageMan.") + id);
        EXPECT_EQ(namesIn(dialog), variable) << id;
        EXPECT_EQ(buttonsOf(dialog), buttons) << id;
        EXPECT_EQ(std::to_string(dialog.defaultButton), usual) << id;
        EXPECT_FALSE(dialog.content.empty()) << id;
    }
}

TEST_F(TaskDialogCatalogueTest, productsDialogs_areTheSameInGerman) {
    put(ryv::test::readBytes(product));
    files.put(u"\\s\\TaskDialogs.de.xaml", ryv::test::readBytes(productInGerman));
    TaskDialogCatalogue german{files, u"\\s\\TaskDialogs.de.xaml",
        [](ryv::CStringView line) { ADD_FAILURE() << ryv::toAscii(line); }};
    ASSERT_EQ(german.dialogs().size(), catalogue.dialogs().size());
    for (std::size_t i = 0; i < german.dialogs().size(); ++i) {
        const TaskDialogRequest& ours = catalogue.dialogs()[i];
        const TaskDialogRequest& theirs = german.dialogs()[i];
        EXPECT_EQ(theirs.id, ours.id);
        EXPECT_EQ(namesIn(theirs), namesIn(ours)) << ryv::toAscii(ours.id);
        EXPECT_EQ(buttonsOf(theirs), buttonsOf(ours)) << ryv::toAscii(ours.id);
        EXPECT_EQ(theirs.defaultButton, ours.defaultButton) << ryv::toAscii(ours.id);
        EXPECT_NE(theirs.instruction, ours.instruction) << ryv::toAscii(ours.id);
    }
}

TEST_F(TaskDialogCatalogueTest, load_fillsTheTextsInOrLeavesTheRequestAlone) {
    put("<TaskDialogs><TaskDialog Id=\"A.B\" Title=\"{X}\" DefaultButton=\"7\">\n<Instruction> one\n  two "
        "</Instruction>"
        "<!-- no text --><Content>\n {X} \n <LineBreak/>\n next &lt;{Y}&gt; \xC5\x81 </Content>"
        "<Button Id=\"7\"> No </Button></TaskDialog></TaskDialogs>");
    TaskDialogRequest request;
    request.buttons = {{99, u"left over"}};
    const std::vector<std::pair<CString, CString>> variables{{u"X", u"- A.dwg\n"}};
    EXPECT_FALSE(catalogue.load(u"a.b", variables, request)) << "case counts";
    EXPECT_EQ(request.buttons.at(0).id, 99);
    ASSERT_TRUE(catalogue.load(u"A.B", variables, request)) << told;
    EXPECT_EQ(ryv::test::shown(request.title), ryv::test::shown(u"- A.dwg\n"));
    EXPECT_EQ(request.instruction, u"one two");
    EXPECT_EQ(ryv::test::shown(request.content), ryv::test::shown(u"- A.dwg\n\nnext <{Y}> Ł"));
    ASSERT_EQ(request.buttons.size(), 1u);
    EXPECT_EQ(request.buttons[0].text, u"No");
    EXPECT_EQ(request.variables, variables);
}

TEST_F(TaskDialogCatalogueTest, fileThatIsMissingOrDamaged_isToldOnce) {
    const std::string whole =
        "<TaskDialog Id=\"A\" Title=\"t\" DefaultButton=\"1\"><Instruction>i</Instruction>"
        "<Button Id=\"1\">OK</Button></TaskDialog>\n";
    const std::pair<std::string, const char*> cases[] = {{"", "xaml: "},
        {"<TaskDialogs>\n" + whole, "xaml: line 2: the file is damaged"},
        {"<Other/>", "there are no task dialogs"},
        {"<TaskDialogs>\n" + whole + whole + "</TaskDialogs>", "line 3: the task dialog is there twice"},
        {"<TaskDialogs>\n<TaskDialog Id=\"A\" Title=\"t\" DefaultButton=\"2\"><Instruction>i</Instruction>"
         "<Button Id=\"1\">OK</Button></TaskDialog></TaskDialogs>",
            "line 2: the task dialog is not complete"}};
    for (const auto& [content, reason] : cases) {
        TaskDialogCatalogue damaged{files, u"\\s\\TaskDialogs.xaml",
            [this](ryv::CStringView line) { told += ryv::toAscii(line) + "\n"; }};
        told.clear();
        if (!content.empty())
            put(content);
        TaskDialogRequest request;
        EXPECT_FALSE(damaged.load(u"A", {}, request) || damaged.load(u"A", {}, request));
        EXPECT_NE(told.find(reason), std::string::npos) << told;
        EXPECT_EQ(std::count(told.begin(), told.end(), '\n'), 1) << told;
    }
}

} // namespace
} // namespace drafta
