#include "ui/dialogs/drawing_list_dialog.h"

#include "base/encoding.h"
#include "manager/nav_state.h"
#include "manager/project_manager.h"
#include "resources/message_numbers.h"
#include "resources/messages.h"
#include "tests/support/scripted_platform.h"
#include "toolkit/check_box.h"
#include "toolkit/text_field.h"

#include <gtest/gtest.h>

namespace ryv::test {
namespace {

using Dlg = CRyvPrmDwgListConfigDlg;

class DrawingListDialog : public ::testing::Test {
protected:
    DrawingListDialog() {
        setNavState(&state);
        state.createProjectManager();
    }
    ~DrawingListDialog() override { state.destroyProjectManager(); }

    void stored(const CArray<int>& order, const CString& separator = u"-", bool showSelection = true) {
        EXPECT_TRUE(state.projectManager()->setDwgDisplaySetting(order, separator, showSelection));
    }
    /// "103 108;-;1"
    std::string stored() {
        CArray<int> order;
        CString separator;
        bool showSelection = false;
        EXPECT_TRUE(state.projectManager()->getDwgDisplaySetting(order, separator, showSelection));
        std::string text;
        for (const int field : order)
            text += (text.empty() ? "" : " ") + std::to_string(field);
        return text + ";" + toUtf8(separator) + (showSelection ? ";1" : ";0");
    }
    ListBox& list(int id) { return dialog.control<ListBox>(id); }
    std::string rows(int id) {
        std::string text;
        for (std::size_t i = 0; i < list(id).rows().size(); ++i) {
            text += text.empty() ? "" : ", ";
            text += (list(id).isChosen(i) ? ">" : "") + toUtf8(list(id).rows()[i].text);
        }
        return text;
    }
    /// The buttons that can be pressed: "add up".
    std::string usable() {
        std::string text;
        for (const int id : {Dlg::addId, Dlg::removeId, Dlg::upId, Dlg::downId})
            if (dialog.find(id)->isUsable())
                text += (text.empty() ? "" : " ") + toUtf8(dialog.find(id)->name());
        return text;
    }

    ScriptedPlatform surroundings;
    NavState state;
    Dlg dialog;
};

TEST_F(DrawingListDialog, opened_showsWhatIsStored) {
    dialog.begin();
    EXPECT_EQ(rows(Dlg::shownId), "File name");
    EXPECT_EQ(rows(Dlg::availableId),
        "Installation code, Location code, Section, Sub-section, Sheet, Drawing number, Description line 1, "
        "Description line 2, Description line 3");
    EXPECT_EQ(usable(), "");
    dialog.pressCancel();
    stored({108, 999, 103, 108}, u":", false);
    dialog.begin();
    EXPECT_EQ(rows(Dlg::shownId), "Description line 1, File name");
    EXPECT_EQ(dialog.control<TextField>(Dlg::separatorId).text(), u":");
    EXPECT_FALSE(dialog.control<CheckBox>(Dlg::showSelectionId).isChecked());
}

TEST_F(DrawingListDialog, fields_moveBetweenTheListsAndInTheirOrder) {
    stored({103, 101});
    dialog.begin();
    list(Dlg::availableId).choose({1}); // section
    EXPECT_EQ(usable(), "add");
    dialog.press(Dlg::addId);
    EXPECT_EQ(rows(Dlg::shownId), "File name, Installation code, >Section");
    EXPECT_EQ(rows(Dlg::availableId).substr(0, 30), "Location code, >Sub-section, S");
    EXPECT_EQ(usable(), "add remove up");
    dialog.press(Dlg::upId);
    EXPECT_EQ(usable(), "add remove up down");
    dialog.press(Dlg::upId);
    EXPECT_EQ(rows(Dlg::shownId), ">Section, File name, Installation code");
    EXPECT_EQ(usable(), "add remove down");
    EXPECT_FALSE(dialog.press(Dlg::upId));
    dialog.press(Dlg::downId);
    EXPECT_EQ(rows(Dlg::shownId), "File name, >Section, Installation code");
    // Back to its place among all fields.
    list(Dlg::shownId).activate(0);
    EXPECT_EQ(rows(Dlg::shownId), ">Section, Installation code");
    EXPECT_EQ(rows(Dlg::availableId).substr(0, 38), "Location code, >File name, Sub-section");
    list(Dlg::availableId).activate(0);
    EXPECT_TRUE(dialog.press(Dialog::idOk));
    EXPECT_EQ(stored(), "104 101 102;-;1");
}

TEST_F(DrawingListDialog, lastField_leavesNothingToAddOrRemove) {
    stored({101, 102, 103, 104, 105, 106, 107, 108, 291});
    dialog.begin();
    list(Dlg::availableId).activate(0);
    EXPECT_EQ(usable(), "remove up");
    for (int i = 0; i < 10; ++i)
        dialog.press(Dlg::removeId);
    EXPECT_EQ(rows(Dlg::shownId), "");
    EXPECT_EQ(usable(), "add");
}

TEST_F(DrawingListDialog, ok_wantsAFieldAndASeparatorBetweenSeveral) {
    const struct {
        CArray<int> order;
        const char16_t* separator;
        int warning; ///< 0: it is accepted
        int focus;
    } cases[] = {{{103}, u"", 0, 0}, {{103, 108}, u"", message::drawingListNoSeparator, Dlg::separatorId},
        {{103, 108}, u" ", 0, 0}, {{}, u"-", message::drawingListNoField, Dlg::availableId},
        {{}, u"", message::drawingListNoField, Dlg::availableId}};
    for (const auto& each : cases) {
        stored(each.order, each.separator);
        surroundings.ui.messages.clear();
        dialog.begin();
        dialog.press(Dialog::idOk);
        EXPECT_EQ(dialog.isOpen(), each.warning != 0);
        ASSERT_EQ(surroundings.ui.messages.size(), each.warning == 0 ? 0u : 1u);
        if (each.warning != 0) {
            EXPECT_EQ(surroundings.ui.messages[0].message, each.warning);
            EXPECT_EQ(surroundings.ui.messages[0].icon, MessageIcon::warning);
            EXPECT_EQ(dialog.focus(), each.focus);
        }
        dialog.pressCancel();
    }
}

TEST_F(DrawingListDialog, settingThatCannotBeWritten_keepsItOpen) {
    dialog.begin();
    dialog.control<CheckBox>(Dlg::showSelectionId).click();
    surroundings.registry.deny(surroundings.profile.key + u"\\Settings\\CurrDisplayOrder");
    dialog.press(Dialog::idOk);
    EXPECT_TRUE(dialog.isOpen());
    EXPECT_EQ(surroundings.ui.asked, (CStringArray{u"message 651"}));
}

} // namespace
} // namespace ryv::test
