#include "tests/support/sample_dialog.h"
#include "tests/support/text.h"
#include "toolkit/combo_box.h"
#include "toolkit/dialog_script.h"
#include "toolkit/grid.h"
#include "toolkit/list_box.h"
#include "toolkit/radio_group.h"
#include "toolkit/text_field.h"
#include "toolkit/tree_control.h"

#include <gtest/gtest.h>

namespace ryv::test {
namespace {

class DialogScriptTest : public testing::Test {
protected:
    DialogScriptTest() {
        dialog.control<ListBox>(sample::drawings).setRows({{u"a.dwg"}, {u"b.dwg"}, {u"c.dwg"}});
        dialog.control<ComboBox>(sample::remark).setRows({{u"Plan"}});
        dialog.control<Grid>(sample::layers).addRow({u"WIREFMT", u"%N"});
        dialog.begin();
    }
    SampleDialog dialog;
};

TEST_F(DialogScriptTest, everyKind_takesItsValue) {
    const ScriptResult result = runDialogScript(dialog,
        u"NAME=Pump ; a folder of its own=1; direction=v; direction=Vertical; 17=\"letter; us\";"
        u"remark=1; notes=\"one; \"\"1\"\"\"|two; drawings=c.dwg|1; settings=wirefmt; browse; press=ok;");
    EXPECT_EQ(shown(result.problem), shown(u"direction has no choice \"v\"")) << "texts, not stored values";
    EXPECT_EQ(result.steps, 2u);
    const ScriptResult rest = runDialogScript(dialog,
        u"direction=Vertical; 17=\"letter; us\"; remark=1; notes=\"one; \"\"1\"\"\"|two; drawings=c.dwg|1;"
        u"settings=wirefmt; browse; press=ok;");
    EXPECT_TRUE(rest.ok()) << shown(rest.problem);
    EXPECT_TRUE(rest.endsWithButton);
    EXPECT_EQ(dialog.control<TextField>(sample::name).text(), u"Pump");
    EXPECT_EQ(dialog.control<RadioGroup>(sample::direction).chosen(), 1u);
    EXPECT_EQ(dialog.control<ComboBox>(sample::format).text(), u"Letter; US");
    EXPECT_EQ(dialog.control<ComboBox>(sample::remark).text(), u"1")
        << "typed: editable boxes know no numbers";
    EXPECT_EQ(dialog.control<TextField>(sample::notes).text(), u"one; \"1\"\ntwo");
    EXPECT_EQ(dialog.control<ListBox>(sample::drawings).chosen(), (std::vector<std::size_t>{0, 2}));
    EXPECT_EQ(dialog.control<Grid>(sample::layers).chosen(), 0u);
    EXPECT_EQ(dialog.story, u"init change:name change:ownFolder change:direction change:format change:remark "
                            u"change:notes change:drawings change:settings press:browse ok ");
    EXPECT_EQ(dialog.result(), Dialog::idOk);
}

TEST_F(DialogScriptTest, whatAUserCouldNotDo_failsWithTheReason) {
    const std::vector<std::pair<CStringView, CStringView>> cases = {
        {u"nothing=1", u"there is no control \"nothing\""},
        {u"=1", u"there is no control \"\""},
        {u"name=123456789", u"name holds no more than 8 characters"},
        {u"remark=1234567890123", u"remark holds no more than 12 characters"},
        {u"folder=x", u"folder is only to be read"},
        {u"levels=1", u"levels is disabled"},
        {u"code=1", u"code is not shown"},
        {u"ownFolder=yes", u"ownFolder takes 1 or 0"},
        {u"format=4", u"format has no choice \"4\""},
        {u"drawings=a.dwg|d.dwg", u"drawings has no choice \"d.dwg\""},
        {u"name", u"there is no button \"name\""},
        {u"press=apply", u"there is no button \"apply\""},
        {u"page=1", u"there is no control \"page\""},
    };
    for (const auto& [step, problem] : cases) {
        const ScriptResult result =
            runDialogScript(dialog, CString(u"ownFolder=1; ") + CString(step) + u"; ok");
        EXPECT_EQ(shown(result.problem), shown(problem));
        EXPECT_EQ(result.failedStep, step);
        EXPECT_EQ(result.steps, 1u);
        EXPECT_TRUE(dialog.isOpen());
    }
    EXPECT_EQ(dialog.control<TextField>(sample::name).text(), u"");
}

TEST_F(DialogScriptTest, endedDialog_takesNoMoreSteps) {
    const ScriptResult result = runDialogScript(dialog, u"cancel; name=x");
    EXPECT_EQ(shown(result.problem), shown(u"the dialog has ended"));
    EXPECT_EQ(dialog.result(), Dialog::idCancel);
}

TEST(DialogScript, tree_rowsAreNamedByTheLabelsDownToThem) {
    static constexpr PanelLayout empty{};
    Panel panel(empty);
    auto& tree = panel.add(std::make_unique<TreeControl>(50));
    TreeItem& demo = tree.insert(nullptr, 0, {u"DEMO"});
    TreeItem& drawing = tree.insert(&demo, 0, {u"a/b.dwg"});
    TreeItem& other = tree.insert(nullptr, 1, {u"OTHER"});
    Dialog dialog{DialogLayout{u"Trees", u"Title", {}, {}}};
    dialog.addPanel(panel);
    dialog.begin();
    EXPECT_TRUE(runDialogScript(dialog, u"50=demo/\"a/b.dwg\"|other").ok());
    EXPECT_EQ(tree.selection(), (std::vector<TreeItem*>{&drawing, &other}));
    EXPECT_TRUE(demo.expanded());
    EXPECT_EQ(shown(runDialogScript(dialog, u"50=demo/c").problem), shown(u"50 has no choice \"demo/c\""));
    EXPECT_TRUE(runDialogScript(dialog, u"50=").ok());
    EXPECT_TRUE(tree.selection().empty());
}

TEST(DialogScript, sheet_turnsToThePageOfWhatIsGiven) {
    Panel one(sample::panels[0]);
    Panel two(sample::panels[1]);
    PropertySheet sheet{DialogLayout{u"Sheet", u"Title", {}, {}}};
    sheet.addPage({u"First", u"p1", {&one}});
    sheet.addPage({u"Second", u"p2", {&two}});
    sheet.begin();
    EXPECT_TRUE(runDialogScript(sheet, u"format=2").ok());
    EXPECT_EQ(sheet.activePage(), 1);
    EXPECT_EQ(sheet.focus(), sample::format);
    EXPECT_TRUE(runDialogScript(sheet, u"page=first").ok());
    EXPECT_EQ(sheet.activePage(), 0);
    EXPECT_TRUE(runDialogScript(sheet, u"page=P2").ok());
    EXPECT_EQ(shown(runDialogScript(sheet, u"page=third").problem), shown(u"there is no page \"third\""));
}

} // namespace
} // namespace ryv::test
