#include "tests/support/golden.h"
#include "tests/support/sample_dialog.h"
#include "toolkit/check_box.h"
#include "toolkit/combo_box.h"
#include "toolkit/grid.h"
#include "toolkit/group_control.h"
#include "toolkit/list_box.h"
#include "toolkit/picture.h"
#include "toolkit/radio_group.h"
#include "toolkit/text_field.h"
#include "toolkit/text_renderer.h"
#include "toolkit/tree_control.h"

#include <gtest/gtest.h>

namespace ryv::test {
namespace {

void fill(const Dialog& dialog) {
    dialog.control<TextField>(sample::name).setText(u"Pump");
    dialog.control<TextField>(sample::folder).setText(u"\\home\\u");
    dialog.control<CheckBox>(sample::own).setChecked(true);
    dialog.control<RadioGroup>(sample::direction).setChosen(1);
    dialog.control<ComboBox>(sample::format).setChosen(2);
    auto& remark = dialog.control<ComboBox>(sample::remark);
    for (int i = 1; i < 10; ++i)
        remark.add({u"line " + toText(i)});
    remark.setText(u"own\u001Btext");
    dialog.control<TextField>(sample::notes).setText(u"first\n\nthird");
    auto& drawings = dialog.control<ListBox>(sample::drawings);
    for (int i = 1; i < 25; ++i)
        drawings.add({toText(i) + u".dwg"});
    drawings.setChosen({1, 3});
    auto& grid = dialog.control<Grid>(sample::layers);
    grid.addRow({u"WIREFMT", u"%N"});
    grid.addRow({u"TAG", u"%F %N"});
    grid.setMarked(1, true);
    grid.setChosen(0);
    dialog.control<Control>(sample::levels).setEnabled(false);
}

TEST(TextRenderer, dialog_withEveryKind_isGolden) {
    SampleDialog dialog;
    fill(dialog);
    dialog.setFocus(sample::browse);
    expectGolden("dialog", TextRenderer().dialog(dialog));
    expectGolden("dialog_with_names", TextRenderer({true, 3, 2}).dialog(dialog));
}

TEST(TextRenderer, gridWithoutRows_saysWhy) {
    Grid grid(1);
    grid.setColumns({u"Setting"});
    grid.setPlaceholder(u"Nothing\ndiffers.");
    EXPECT_NE(TextRenderer().control(grid).find(u"Nothing differs."), CString::npos);
    grid.addRow({u"WIREFMT"});
    EXPECT_EQ(TextRenderer().control(grid).find(u"differs"), CString::npos);
}

TEST(TextRenderer, sheet_showsAllTabsAndOnePage_isGolden) {
    Panel one(sample::panels[0]);
    Panel two(sample::panels[1]);
    PropertySheet sheet{DialogLayout{u"Sheet", u"Properties of R&D", {}, {}}};
    sheet.addPage({u"Settings", u"settings", {&one}});
    sheet.addPage({u"Styles", u"styles", {&two}});
    fill(sheet);
    sheet.control<Control>(sample::format).setWarning(u"No such\nformat");
    sheet.setFocus(sample::format);
    expectGolden("sheet", TextRenderer().dialog(sheet));
}

TEST(TextRenderer, tree_showsRowsThatCanBeSeen_isGolden) {
    TreeControl tree(1);
    tree.setLabel(u"Projects");
    TreeItem& demo = tree.insert(nullptr, 0, {u"DEMO", 0, true});
    TreeItem& power = tree.insert(&demo, 0, {u"POWER"});
    tree.insert(&power, 0, {u"a.dwg"});
    tree.insert(&demo, 1, {u"b.dwg"});
    TreeItem& other = tree.insert(nullptr, 1, {u"OTHER"});
    tree.insert(&other, 0, {u"c.dwg"});
    tree.expandAll(&demo, true);
    tree.setSelection({&power, &other});
    CString text = TextRenderer().control(tree) + TextRenderer({false, 2}).control(tree);
    tree.expand(power, false);
    text += TextRenderer().control(tree);
    tree.clear();
    text += TextRenderer().control(tree);
    TreeItem* deepest = nullptr;
    for (int level = 0; level < 43; ++level)
        deepest = &tree.insert(deepest, 0, {toText(level)});
    tree.expandAll(nullptr, true);
    expectGolden("tree", text + TextRenderer({false, 100}).control(tree));
}

TEST(TextRenderer, menu_isGolden) {
    Menu menu(u"project");
    menu.add(217, u"&Properties...");
    menu.addSeparator();
    Menu& publish = menu.addSubmenu(u"P&ublish");
    publish.add(238, u"Plot").checked = true;
    publish.add(1140, u"Archive").enabled = false;
    menu.add(99, u"A && B");
    menu.setDefaultItem(99);
    expectGolden("menu", TextRenderer().menu(menu));
}

TEST(TextRenderer, groupsAndProgress_areGolden) {
    TextField details(1);
    details.setMultiLine(true);
    details.setText(u"Pump.dwg\nSheet 1");
    Picture preview(2);
    GroupControl group(3);
    group.addPage(u"Details", details);
    group.addPage(u"Preview", preview);
    const TextRenderer renderer;
    CString text = renderer.control(group);
    group.selectPage(1);
    text += renderer.control(group);
    preview.setDrawing(u"\\home\\u\\a.dwg");
    text += renderer.control(group);
    group.setMinimized(true);
    text += renderer.control(group);
    ProgressModel progress(u"Reading", 3);
    progress.step(1, u"a.dwg");
    text += renderer.progress(progress);
    ProgressModel endless(u"Looking", 0);
    endless.step(12, u"");
    text += renderer.progress(endless);
    expectGolden("groups_and_progress", text);
}

TEST(TextRenderer, groupsInsideEachOther_endSomewhere) {
    GroupControl outer(1);
    GroupControl inner(2);
    outer.addPage(u"Inner", inner);
    EXPECT_THROW(outer.addPage(u"Own", outer), std::invalid_argument);
    inner.addPage(u"Outer", outer);
    const CString text = TextRenderer().control(outer);
    EXPECT_EQ(std::count(text.begin(), text.end(), u'\n'), 18) << shown(text);
    EXPECT_TRUE(text.ends_with(u" ...\n"));
}

TEST(TextRenderer, controlCharactersInNames_areBlanks) {
    Picture picture(1);
    picture.setDrawing(u"\\a\x1B[2J.dwg");
    Button button(2);
    button.setName(u"b\x9B\n");
    EXPECT_EQ(shown(TextRenderer().control(picture)), shown(u"(picture of \\a [2J.dwg)\n"));
    EXPECT_EQ(shown(TextRenderer({true}).control(button)), shown(u"<b  > {b  }\n"));
}

} // namespace
} // namespace ryv::test
