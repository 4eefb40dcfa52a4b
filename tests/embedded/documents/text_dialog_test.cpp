#include "embedded/services/answers.h"
#include "embedded/services/text_user_interface.h"

#include "tests/support/sample_dialog.h"
#include "tests/support/text.h"
#include "toolkit/check_box.h"
#include "toolkit/menu.h"
#include "toolkit/text_field.h"

#include <gtest/gtest.h>

#include <deque>

namespace drafta {
namespace {

using ryv::CString;
using ryv::CStringView;
using ryv::Dialog;
using ryv::test::SampleDialog;
using ryv::test::shown;
namespace sample = ryv::test::sample;

class TextDialogTest : public ::testing::Test {
protected:
    std::deque<CString> typed;
    CString printed;
    CString warnings;
    CString asked;
    bool interrupted = false;
    std::function<void()> meanwhile = [] {}; ///< while the person is asked
    TextUserInterface ui{
        {[this](CStringView text) { printed += text; }, [this](CStringView text) { warnings += text; },
            [this](CStringView prompt) -> std::optional<CString> {
                asked += prompt;
                meanwhile();
                if (typed.empty())
                    return std::nullopt;
                const CString line = typed.front();
                typed.pop_front();
                return line;
            },
            [](CStringView path) { return CString(path); }, [](CStringView path) { return CString(path); },
            [](CStringView) { return true; }, [this] { return interrupted; }}};
    SampleDialog dialog;

    void answers(CStringView text) {
        Answers read;
        CString problem;
        ASSERT_TRUE(Answers::parse(text, read, problem)) << ryv::toAscii(problem);
        ui.setAnswers(read);
    }
    bool wasPrinted(CStringView text) const { return printed.find(text) != CString::npos; }
};

TEST_F(TextDialogTest, answersFile_fillsInAndConfirms) {
    answers(u"dialog Sample: name=Pump; ownFolder=1\ndialog sample: name=Fan; press=cancel\n");
    EXPECT_EQ(ui.runModal(dialog), Dialog::idOk);
    EXPECT_EQ(dialog.control<ryv::TextField>(sample::name).text(), u"Pump");
    EXPECT_EQ(ui.runModal(dialog), Dialog::idCancel);
    EXPECT_EQ(dialog.story, u"init change:name change:ownFolder ok init change:name cancel ");
    EXPECT_EQ(shown(warnings), shown(u""));
}

TEST_F(TextDialogTest, answerThatLeavesItOpen_cancelsWithTheReason) {
    answers(u"dialog Sample: levels=1; ok\ndialog Sample: name=Pump; ok\n");
    EXPECT_EQ(ui.runModal(dialog), Dialog::idCancel);
    EXPECT_EQ(
        shown(warnings), shown(u"cancelled, the answer does not fit: dialog Sample: levels=1; ok (levels is "
                               u"disabled)\n"));
    warnings.clear();
    dialog.confirms = false;
    EXPECT_EQ(ui.runModal(dialog), Dialog::idCancel);
    EXPECT_EQ(shown(warnings), shown(u"cancelled, the answer does not fit: dialog Sample: name=Pump; ok (it "
                                     u"stays open)\n"));
}

TEST_F(TextDialogTest, controlCharacters_reachNoTerminal) {
    dialog.setTitle(u"a\x1B]0;b\x07");
    ui.runModal(dialog);
    ryv::MessageBoxRequest box;
    box.text = u"two\nlines\x1B[2J";
    ui.messageBox(box);
    ryv::TaskDialogRequest task;
    task.content = u"\x9B";
    task.buttons = {{1, u"\x1B"}};
    ui.taskDialog(task);
    ryv::FormRequest form;
    form.fields.emplace_back();
    form.fields[0].label = u"label\x1B";
    form.fields[0].choices = {u"\x1B\nchoice"};
    ui.fillForm(form);
    EXPECT_TRUE(wasPrinted(u"two\nlines [2J\n"));
    EXPECT_NE(asked.find(u"  1   choice"), CString::npos) << shown(asked);
    for (const CString& text : {printed, warnings, asked})
        EXPECT_EQ(text.find_first_of(u"\x07\x1B\x9B"), CString::npos) << shown(text);
}

TEST_F(TextDialogTest, nobodyThere_cancelsAndNamesTheLine) {
    EXPECT_EQ(ui.runModal(dialog), Dialog::idCancel);
    EXPECT_FALSE(dialog.isOpen());
    EXPECT_EQ(shown(warnings), shown(u"cancelled, nobody answered it: dialog Sample\n"));
    warnings.clear();
    dialog.opens = false;
    EXPECT_EQ(ui.runModal(dialog), Dialog::idCancel);
    EXPECT_EQ(shown(warnings), shown(u"")) << "it never opened";
}

TEST_F(TextDialogTest, person_fillsInLineByLineAndSeesWhatFollows) {
    typed = {u"name=123456789", u"name=Pump; ownFolder=1", u"?", u"nonsense", u""};
    EXPECT_EQ(ui.runModal(dialog), Dialog::idOk);
    EXPECT_EQ(dialog.control<ryv::TextField>(sample::name).text(), u"Pump");
    EXPECT_TRUE(wasPrinted(u"\nname holds no more than 8 characters\n"));
    EXPECT_TRUE(wasPrinted(u"\nName: [Pump] {name}\n[x] A folder of its own {ownFolder}\n"));
    EXPECT_TRUE(wasPrinted(u"\n  Name:   [Pump] {name}\n")) << "the whole dialog again";
    EXPECT_TRUE(wasPrinted(u"there is no button \"nonsense\""));
    EXPECT_EQ(shown(warnings), shown(u""));
}

TEST_F(TextDialogTest, refused_showsTheFieldThatHasTheFocus) {
    typed = {u"browse", u"ok", u"cancel"};
    dialog.confirms = false;
    EXPECT_EQ(ui.runModal(dialog), Dialog::idCancel);
    EXPECT_TRUE(wasPrinted(u"\nName: [] {name}\n"));
    EXPECT_EQ(dialog.story, u"init press:browse ok cancel ");
}

TEST_F(TextDialogTest, closedByOthersMeanwhile_theLineIsForNobody) {
    typed = {u"name=late"};
    meanwhile = [this] { dialog.end(77); };
    EXPECT_EQ(ui.runModal(dialog), 77);
    EXPECT_EQ(dialog.control<ryv::TextField>(sample::name).text(), u"");
    EXPECT_EQ(shown(warnings), shown(u""));
}

/// Its OK asks a dialog of its own first.
class Nesting : public SampleDialog {
public:
    explicit Nesting(TextUserInterface& ui) : ui_(ui) {}
    SampleDialog inner;

private:
    bool onOk() override {
        const bool confirmed = ui_.runModal(inner) == idOk;
        EXPECT_TRUE(ui_.hasOpenDialog());
        return confirmed;
    }
    TextUserInterface& ui_;
};

TEST_F(TextDialogTest, nestedDialogs_endOneAfterTheOther) {
    Nesting outer(ui);
    typed = {u"ok", u"name=in", u"cancel", u"name=out", u"ok", u"ok"};
    EXPECT_FALSE(ui.hasOpenDialog());
    EXPECT_EQ(ui.runModal(outer), Dialog::idOk);
    EXPECT_FALSE(ui.hasOpenDialog());
    EXPECT_EQ(outer.inner.story, u"init change:name cancel init ok ");
    EXPECT_EQ(outer.control<ryv::TextField>(sample::name).text(), u"out");
}

TEST_F(TextDialogTest, menu_isAnsweredByNumberOrText) {
    ryv::Menu menu(u"project");
    menu.add(217, u"&Properties");
    menu.add(218, u"Off").enabled = false;
    menu.addSubmenu(u"Publish").add(238, u"Plot");
    answers(u"menu project: 217\nmenu Project: plot\nmenu project: cancel\nmenu project: off\n");
    EXPECT_EQ(ui.popupMenu(menu, {}), 217);
    EXPECT_EQ(ui.popupMenu(menu, {}), 238);
    EXPECT_EQ(ui.popupMenu(menu, {}), 0);
    EXPECT_EQ(shown(warnings), shown(u""));
    EXPECT_EQ(ui.popupMenu(menu, {}), 0);
    EXPECT_EQ(shown(warnings), shown(u"cancelled, the answer does not fit: menu project: off\n"));
    ui.setAnswers({});
    warnings.clear();
    typed = {u"Publish", u"properties"};
    EXPECT_EQ(ui.popupMenu(menu, {}), 217);
    EXPECT_EQ(ui.popupMenu(menu, {}), 0);
    EXPECT_EQ(shown(warnings), shown(u"cancelled, nobody answered it: menu project\n"));
}

TEST_F(TextDialogTest, progress_isShownInTenthsAndEndsWithAnInterrupt) {
    const auto progress = ui.beginProgress(128, 100);
    for (std::size_t i = 0; i < 100; ++i)
        EXPECT_TRUE(progress->step(i, u"x.dwg"));
    EXPECT_EQ(std::count(printed.begin(), printed.end(), u'#'), 2 + 4 + 6 + 8 + 10 + 12 + 14 + 16 + 18);
    interrupted = true;
    EXPECT_FALSE(progress->step(100, u""));
}

} // namespace
} // namespace drafta
