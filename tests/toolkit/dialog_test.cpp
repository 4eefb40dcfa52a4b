#include "tests/support/sample_dialog.h"
#include "tests/support/text.h"
#include "toolkit/check_box.h"
#include "toolkit/list_box.h"
#include "toolkit/text_field.h"

#include <gtest/gtest.h>

namespace ryv::test {
namespace {

class DialogTest : public testing::Test {
protected:
    SampleDialog dialog;
    int endings = 0;
    Subscription ended = dialog.ended.subscribe([this] { ++endings; });
};

TEST_F(DialogTest, course_fromBeginToEnd_isToldInOrderAndFieldsAreKept) {
    auto& name = dialog.control<TextField>(sample::name);
    dialog.begin();
    dialog.begin();
    EXPECT_TRUE(name.type(u"Pump"));
    EXPECT_TRUE(dialog.press(sample::browse));
    EXPECT_TRUE(dialog.pressDefault());
    EXPECT_FALSE(dialog.isOpen());
    EXPECT_EQ(dialog.result(), Dialog::idOk);
    dialog.begin();
    EXPECT_EQ(name.text(), u"Pump");
    dialog.pressCancel();
    EXPECT_EQ(dialog.result(), Dialog::idCancel);
    EXPECT_EQ(dialog.story, u"init change:name press:browse ok init cancel ");
    EXPECT_EQ(endings, 2);
}

TEST_F(DialogTest, okRefused_staysOpenWithTheFocusOfItsChoice) {
    dialog.confirms = false;
    dialog.begin();
    EXPECT_TRUE(dialog.press(Dialog::idOk));
    EXPECT_TRUE(dialog.isOpen());
    EXPECT_EQ(dialog.focus(), sample::name);
    EXPECT_EQ(endings, 0);
}

TEST_F(DialogTest, initRefused_closesAtOnceWithCancel) {
    dialog.opens = false;
    dialog.begin();
    EXPECT_FALSE(dialog.isOpen());
    EXPECT_EQ(dialog.result(), Dialog::idCancel);
    EXPECT_EQ(dialog.story, u"init ") << "onCancel is for the user's own";
    EXPECT_EQ(endings, 1);
}

TEST_F(DialogTest, closed_hearsNothingOfTheUser) {
    dialog.control<TextField>(sample::name).type(u"x");
    EXPECT_FALSE(dialog.press(Dialog::idOk));
    dialog.pressCancel();
    dialog.end(7);
    EXPECT_EQ(dialog.story, u"");
    EXPECT_EQ(dialog.result(), 0);
}

TEST_F(DialogTest, programsChanges_areToldToViewsOnly) {
    int seen = 0;
    const auto views = dialog.changed.subscribe([&](const Control& control) {
        EXPECT_EQ(control.id(), sample::own);
        ++seen;
    });
    dialog.begin();
    dialog.control<CheckBox>(sample::own).setChecked(true);
    dialog.control<CheckBox>(sample::own).setChecked(true);
    EXPECT_EQ(seen, 1);
    EXPECT_EQ(dialog.story, u"init ");
    dialog.control<CheckBox>(sample::own).click();
    EXPECT_EQ(seen, 2);
    EXPECT_EQ(dialog.story, u"init change:ownFolder ");
}

TEST_F(DialogTest, wrongIdsAndKinds_areFaults) {
    EXPECT_THROW(dialog.control<TextField>(sample::own), std::invalid_argument);
    EXPECT_THROW(dialog.control<TextField>(999), std::invalid_argument);
    EXPECT_THROW(dialog.setFocus(999), std::invalid_argument);
    dialog.begin();
    EXPECT_THROW(dialog.press(sample::name), std::invalid_argument);
    Panel twin(sample::panels[0]);
    EXPECT_THROW(dialog.addPanel(twin), std::invalid_argument);
}

TEST_F(DialogTest, disabledButton_pressesNothing) {
    dialog.begin();
    dialog.control<Button>(Dialog::idOk).setEnabled(false);
    EXPECT_FALSE(dialog.pressDefault());
    dialog.control<Button>(Dialog::idCancel).setEnabled(false);
    dialog.pressCancel();
    EXPECT_EQ(dialog.story, u"init cancel ") << "Escape always works";
}

/// Somebody else closes the dialog while it asks a question of its own.
class ClosedMeanwhile : public SampleDialog {
    bool onOk() override {
        end(77);
        return true;
    }
};

TEST(Dialog, closedWhileItConfirms_keepsThatResult) {
    ClosedMeanwhile dialog;
    dialog.begin();
    dialog.press(Dialog::idOk);
    EXPECT_EQ(dialog.result(), 77);
}

/// Its own functions end it and begin it again, or fail.
class Restless : public SampleDialog {
public:
    bool failsInit = false;

private:
    bool onInit() override {
        if (failsInit)
            throw std::runtime_error("no");
        return SampleDialog::onInit();
    }
    bool onOk() override {
        restart();
        return true;
    }
    void onCancel() override { restart(); }
    void restart() {
        end(77);
        begin();
    }
};

TEST(Dialog, begunAgainWhileItEnds_staysOpen) {
    Restless dialog;
    dialog.begin();
    dialog.press(Dialog::idOk);
    EXPECT_TRUE(dialog.isOpen());
    dialog.pressCancel();
    EXPECT_TRUE(dialog.isOpen());
}

TEST(Dialog, initThatFails_closesIt) {
    Restless dialog;
    dialog.failsInit = true;
    EXPECT_THROW(dialog.begin(), std::runtime_error);
    EXPECT_FALSE(dialog.isOpen());
    EXPECT_EQ(dialog.result(), Dialog::idCancel);
    dialog.failsInit = false;
    dialog.begin();
    EXPECT_TRUE(dialog.isOpen());
}

class SheetTest : public testing::Test {
protected:
    SheetTest() {
        sheet.addPage({u"First", u"first", {&one}});
        sheet.addPage({u"Second", u"second", {&two}});
    }
    Panel one{sample::panels[0]};
    Panel two{sample::panels[1]};
    PropertySheet sheet{DialogLayout{u"Sheet", u"Title", {}, {}}};
};

TEST_F(SheetTest, focusOnAnotherPage_turnsToIt) {
    EXPECT_EQ(sheet.activePage(), 0);
    sheet.setFocus(sample::format);
    EXPECT_EQ(sheet.activePage(), 1);
    sheet.setFocus(Dialog::idOk);
    EXPECT_EQ(sheet.activePage(), 1) << "the buttons are on no page";
    EXPECT_FALSE(sheet.turnTo(2));
    EXPECT_FALSE(sheet.turnTo(-1));
    EXPECT_TRUE(sheet.turnTo(0));
}

/// A panel with a mind of its own: its button fills its field.
class FillingPanel : public Panel {
public:
    FillingPanel() : Panel(sample::panels[0]) {}
    int changes = 0;

private:
    void onChange(Control&) override { ++changes; }
    void onPress(int) override { control<TextField>(sample::name).setText(u"filled"); }
};

TEST(PropertySheet, panels_hearOfTheirOwnControls) {
    FillingPanel panel;
    Panel other(sample::panels[1]);
    PropertySheet sheet{DialogLayout{u"Sheet", u"Title", {}, {}}};
    sheet.addPage({u"First", u"first", {&panel, &other}});
    sheet.begin();
    sheet.press(sample::browse);
    EXPECT_EQ(panel.control<TextField>(sample::name).text(), u"filled");
    panel.control<CheckBox>(sample::own).click();
    other.control<TextField>(sample::notes).type(u"a\nb");
    EXPECT_EQ(panel.changes, 1);
}

/// As dialogs that have their panels as members: these go before the base class does.
class WithMember : public SampleDialog {
public:
    WithMember() {
        panel.add(std::make_unique<ListBox>(500));
        addPanel(panel);
    }
    Panel panel{PanelLayout{}};
};

TEST(Dialog, panelsThatAreMembers_mayGoFirst) {
    WithMember dialog;
    dialog.begin();
    dialog.control<ListBox>(500).setRows({{u"a"}});
    EXPECT_TRUE(dialog.control<ListBox>(500).choose({0}));
    EXPECT_EQ(dialog.story, u"init change: ");
}

} // namespace
} // namespace ryv::test
