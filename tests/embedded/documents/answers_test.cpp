#include "embedded/services/answers.h"
#include "embedded/services/text_user_interface.h"

#include "base/text.h"

#include <gtest/gtest.h>

namespace drafta {
namespace {

using ryv::CString;
using ryv::CStringArray;
using ryv::FormField;

class QuestionsTest : public ::testing::Test {
protected:
    std::vector<CString> typed;
    CString warnings;
    TextUserInterface ui{{[](ryv::CStringView) {}, [this](ryv::CStringView text) { warnings += text; },
        [this](ryv::CStringView) -> std::optional<CString> {
            if (typed.empty())
                return std::nullopt;
            const CString line = typed.front();
            typed.erase(typed.begin());
            return line;
        },
        [](ryv::CStringView path) { return ryv::replaceAll(path, u'/', u'\\'); },
        [](ryv::CStringView path) { return CString(path); },
        [](ryv::CStringView path) { return !path.starts_with(u"\\new"); }}};

    void answers(ryv::CStringView text) {
        Answers read;
        CString problem;
        ASSERT_TRUE(Answers::parse(text, read, problem)) << ryv::toAscii(problem);
        ui.setAnswers(read);
    }
    static ryv::FormRequest form() {
        return {u"f", u"title",
            {{FormField::Kind::text, u"name", u"Name", {}, {u"proposed"}},
                {FormField::Kind::choice, u"kind", u"Kind", {u"Ä", u"two"}, {u"two"}},
                {FormField::Kind::list, u"order", u"Order", {u"1", u"2", u"3"}, {}},
                {FormField::Kind::check, u"on", u"On", {}, {u"0"}}},
            u"", u""};
    }
};

TEST_F(QuestionsTest, answersFile_answersInOrderAndRepeatsTheLast) {
    answers(u"# a comment\r\n\nmessage 7: yes\nMESSAGE 7: n\ntask A.b: 1001\nfile 3: /a/b.kqp | /c.kqp\n");
    const ryv::MessageBoxRequest question{7, u"?", u"", {}, ryv::MessageButtons::yesNo};
    EXPECT_EQ(ui.messageBox(question), ryv::Answer::yes);
    EXPECT_EQ(ui.messageBox(question), ryv::Answer::no);
    EXPECT_EQ(ui.messageBox(question), ryv::Answer::no);
    EXPECT_EQ(ui.taskDialog({u"a.B", u"", u"", u"", {{1000, u"Keep"}, {1001, u"Drop"}}, 0, {}}), 1001);
    EXPECT_EQ(ui.chooseFiles({3, u"", u"", u"", u".kqp", false, true}),
        (std::vector<CString>{u"\\a\\b.kqp", u"\\c.kqp"}));
    EXPECT_TRUE(warnings.empty());
}

TEST_F(QuestionsTest, newFiles_getTheirExtensionAndReplaceNothingUnasked) {
    answers(u"file 3: /new/a\nfile 3: /new/b.ZIP\nfile 3: /there.zip\nmessage 2: no\nmessage 2: yes\nfile 4: "
            u"/new/x\n");
    const ryv::FileRequest save{3, u"", u"", u"", u".zip", true, false};
    EXPECT_EQ(ui.chooseFiles(save), (std::vector<CString>{u"\\new\\a.zip"}));
    EXPECT_EQ(ui.chooseFiles(save), (std::vector<CString>{u"\\new\\b.ZIP"}));
    EXPECT_TRUE(ui.chooseFiles(save).empty());
    EXPECT_EQ(ui.chooseFiles(save), (std::vector<CString>{u"\\there.zip"}));
    EXPECT_TRUE(ui.chooseFiles({4, u"", u"", u"", u".kqp", false, false}).empty())
        << "to be opened, and not there";
}

TEST_F(QuestionsTest, badLines_areNamed) {
    for (const ryv::CStringView text : {u"message 7: yes\nwhat 8: no\n", u"\nmessage 7 yes\n", u"\nform\n"}) {
        Answers read;
        CString problem;
        EXPECT_FALSE(Answers::parse(text, read, problem));
        EXPECT_TRUE(problem.starts_with(u"line 2: ")) << ryv::toAscii(problem);
    }
}

TEST_F(QuestionsTest, unanswered_isCancelledWithAWarningThatNamesTheQuestion) {
    EXPECT_EQ(ui.messageBox({7, u"?", u"", {}, ryv::MessageButtons::yesNo}), ryv::Answer::no);
    EXPECT_EQ(ui.messageBox({7, u"?", u"", {}, ryv::MessageButtons::okCancel}), ryv::Answer::cancel);
    EXPECT_EQ(ui.messageBox({7, u"!", u"", {}, ryv::MessageButtons::ok}), ryv::Answer::ok);
    EXPECT_EQ(ui.taskDialog({u"A.b", u"", u"", u"", {{1, u"OK"}}, 0, {}}), ryv::UserInterface::idCancel);
    ryv::FormRequest request = form();
    EXPECT_FALSE(ui.fillForm(request));
    EXPECT_NE(warnings.find(u"form f"), CString::npos);
    EXPECT_NE(warnings.find(u"message 7"), CString::npos);
}

TEST_F(QuestionsTest, formAnswer_isTakenWholeOrNotAtAll) {
    answers(u"form f: name=\"a; \"\"b\"\" | c\"; kind=ä; order=3|1; on=1\n"
            u"form f: name=x; kind=three\nform f: nothing=1\nform f: on=2\nform f: order=\nform f: cancel\n");
    ryv::FormRequest request = form();
    ASSERT_TRUE(ui.fillForm(request));
    EXPECT_EQ(request.fields[0].values, CStringArray{u"a; \"b\" | c"});
    EXPECT_EQ(request.fields[1].values, CStringArray{u"Ä"});
    EXPECT_EQ(request.fields[2].values, (CStringArray{u"3", u"1"}));
    EXPECT_EQ(request.fields[3].values, CStringArray{u"1"});
    for (int i = 0; i < 3; ++i) {
        ryv::FormRequest untouched = form();
        EXPECT_FALSE(ui.fillForm(untouched));
        EXPECT_EQ(untouched.fields[0].values, CStringArray{u"proposed"});
    }
    EXPECT_TRUE(ui.fillForm(request));
    EXPECT_TRUE(request.fields[2].values.empty());
    warnings.clear();
    EXPECT_FALSE(ui.fillForm(request));
    EXPECT_TRUE(warnings.empty()) << "cancelling is an answer";
}

TEST_F(QuestionsTest, person_isAskedFieldByFieldAndAgainAfterAWrongAnswer) {
    typed = {u"", u"three", u"1", u"2|1", u"1"};
    ryv::FormRequest request = form();
    ASSERT_TRUE(ui.fillForm(request));
    EXPECT_EQ(request.fields[0].values, CStringArray{u"proposed"});
    EXPECT_EQ(request.fields[1].values, CStringArray{u"Ä"}) << "by its number";
    EXPECT_EQ(request.fields[2].values, (CStringArray{u"2", u"1"})) << "by their texts";
    typed = {u"maybe", u"y"};
    EXPECT_EQ(ui.messageBox({7, u"?", u"", {}, ryv::MessageButtons::yesNo}), ryv::Answer::yes);
    typed = {u""};
    EXPECT_EQ(ui.taskDialog({u"A.b", u"", u"", u"", {{1000, u"Keep"}, {1001, u"Drop"}}, 1000, {}}), 1000);
}

} // namespace
} // namespace drafta
