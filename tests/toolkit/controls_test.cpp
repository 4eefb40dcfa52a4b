#include "toolkit/button.h"
#include "toolkit/combo_box.h"
#include "toolkit/grid.h"
#include "toolkit/group_control.h"
#include "toolkit/list_box.h"
#include "toolkit/menu.h"
#include "toolkit/picture.h"
#include "toolkit/progress_model.h"
#include "toolkit/text_field.h"

#include <gtest/gtest.h>

namespace ryv {
namespace {

using Rows = std::vector<std::size_t>;

TEST(TextField, user_isHeldToTheRulesAndTheProgramIsNot) {
    TextField field(1);
    int told = 0;
    const auto edits = field.edited.subscribe([&](Control&) { ++told; });
    field.setMaxLength(4);
    field.setRule([](CStringView text) { return text.find(u'*') == CStringView::npos; });
    EXPECT_TRUE(field.type(u"1234"));
    for (const CStringView refused : {u"12345", u"a*b", u"a\nb"})
        EXPECT_FALSE(field.type(CString(refused)));
    EXPECT_EQ(field.text(), u"1234");
    EXPECT_EQ(told, 1);
    field.setText(u"longer*than");
    EXPECT_EQ(field.text(), u"longer*than");
    field.setReadOnly(true);
    EXPECT_FALSE(field.type(u"x"));
    EXPECT_EQ(told, 1);
}

TEST(ListBox, changesOfRows_keepTheChosenOnes) {
    ListBox list(1, true);
    list.setRows({{u"a"}, {u"b"}, {u"c"}});
    EXPECT_TRUE(list.choose({0, 2}));
    list.insert(1, {u"new"});
    EXPECT_EQ(list.chosen(), (Rows{0, 3}));
    list.remove(0);
    EXPECT_EQ(list.chosen(), (Rows{2}));
    list.exchange(2, 0);
    EXPECT_EQ(list.chosen(), (Rows{0}));
    EXPECT_EQ(list.rows()[0].text, u"c");
    EXPECT_THROW(list.remove(3), std::invalid_argument);
    EXPECT_THROW(list.insert(4, {}), std::invalid_argument);
    EXPECT_THROW(list.setChosen({3}), std::invalid_argument);
}

TEST(ListBox, user_choosesOnlyWhatCanBeChosen) {
    ListBox list(1);
    list.setRows({{u"a"}, separatorChoice(), {u"b"}});
    Rows activated;
    const auto handler = list.activated.subscribe([&](std::size_t row) { activated.push_back(row); });
    EXPECT_TRUE(list.choose({2}));
    for (const Rows& refused : {Rows{1}, Rows{3}, Rows{0, 2}})
        EXPECT_FALSE(list.choose(refused));
    EXPECT_EQ(list.firstChosen(), 2u);
    EXPECT_TRUE(list.activate(0));
    EXPECT_FALSE(list.activate(1));
    EXPECT_EQ(activated, Rows{0});
    list.setVisible(false);
    EXPECT_FALSE(list.choose({2}));
    EXPECT_EQ(list.firstChosen(), 0u);
}

TEST(ComboBox, textAndRow_followEachOther) {
    ComboBox drop(1);
    ComboBox editable(2, true);
    for (ComboBox* const box : {&drop, &editable}) {
        box->setRows({{u"a"}, separatorChoice(), {u"b"}});
        EXPECT_TRUE(box->choose(2));
        EXPECT_EQ(box->text(), u"b");
        EXPECT_FALSE(box->choose(1));
        box->setText(u"other");
        EXPECT_FALSE(box->chosen());
    }
    EXPECT_EQ(drop.text(), u"");
    EXPECT_EQ(editable.text(), u"other");
    EXPECT_FALSE(drop.type(u"a"));
    editable.setMaxLength(3);
    EXPECT_FALSE(editable.type(u"long"));
    EXPECT_TRUE(editable.type(u"a"));
    EXPECT_EQ(editable.chosen(), 0u);
    editable.setRows({{u"x"}});
    EXPECT_EQ(editable.text(), u"a");
    EXPECT_FALSE(editable.chosen());
}

TEST(ComboBox, chosenAgain_isToldForRowsAreCommands) {
    ComboBox box(1);
    box.setRows({{u"New project"}});
    int told = 0;
    const auto edits = box.edited.subscribe([&](Control&) { ++told; });
    box.choose(0);
    box.choose(0);
    EXPECT_EQ(told, 2);
}

TEST(Grid, shortAndLongRows_areMadeToFit) {
    Grid grid(1);
    grid.setColumns({u"a", u"b"});
    grid.addRow({u"1"});
    grid.addRow({u"1", u"2", u"3"});
    EXPECT_EQ(grid.text(0, 1), u"");
    EXPECT_THROW(grid.text(1, 2), std::invalid_argument);
    EXPECT_TRUE(grid.choose(1));
    EXPECT_FALSE(grid.choose(2));
    grid.clear();
    EXPECT_FALSE(grid.chosen());
}

TEST(GroupControl, click_opensThePageAndEndsBeingMinimised) {
    TextField details(1);
    Picture preview(2);
    GroupControl group(3);
    EXPECT_EQ(group.selectedPage(), -1);
    group.addPage(u"Details", details);
    group.addPage(u"Preview", preview);
    group.setMinimized(true);
    group.selectPage(1);
    group.selectPage(5);
    EXPECT_EQ(group.selectedPage(), 1);
    EXPECT_TRUE(group.isMinimized());
    EXPECT_TRUE(group.click(0));
    EXPECT_FALSE(group.click(-1));
    EXPECT_EQ(group.selectedPage(), 0);
    EXPECT_FALSE(group.isMinimized());
}

TEST(Menu, commandsInside_areFound) {
    Menu menu(u"m");
    menu.addSeparator();
    menu.add(1, u"One");
    Menu& inner = menu.addSubmenu(u"More");
    menu.addSeparator();
    menu.addSeparator();
    menu.add(2, u"Two").enabled = false;
    inner.add(3, u"Three");
    EXPECT_EQ(menu.items().size(), 4u) << "no line at the top, and one line where two were added";
    ASSERT_TRUE(menu.find(3));
    EXPECT_TRUE(menu.find(3)->isUsable());
    EXPECT_FALSE(menu.find(2)->isUsable());
    EXPECT_FALSE(menu.find(0)) << "submenus and lines are no commands";
}

TEST(ProgressModel, cancelled_isLearntAtTheNextStep) {
    ProgressModel progress(u"p", 4);
    EXPECT_TRUE(progress.step(1, u"a"));
    EXPECT_EQ(progress.percent(), 25);
    progress.cancel();
    EXPECT_FALSE(progress.step(9, u"b"));
    EXPECT_EQ(progress.percent(), 100);
}

TEST(Button, pressed_mayDestroyTheButton) {
    auto button = std::make_unique<Button>(1);
    const auto handler = button->pressed.subscribe([&](Button&) { button.reset(); });
    EXPECT_TRUE(button->press());
    EXPECT_FALSE(button);
}

} // namespace
} // namespace ryv
