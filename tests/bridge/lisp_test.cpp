#include "bridge/lisp.h"
#include "tests/bridge/recording_host.h"
#include "tests/support/scripted_platform.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

namespace ryv::test {
namespace {

class Lisp : public ::testing::Test {
protected:
    Lisp() { surroundings.documents.open = true; }

    ScriptedPlatform surroundings;
    ScriptedLisp& lisp = surroundings.lisp;
    HostResultBuffer result;
    CString text = u"before";
    int number = 4711;
};

HostResultBuffer string(CStringView text) {
    return HostResultBuffer().addString(text);
}

TEST_F(Lisp, invokeWithoutDocument_callsNothingAndSaysSo) {
    surroundings.documents.open = false;
    lisp.answer(u"f", string(u"x"));
    EXPECT_EQ(invokeLisp(string(u"f"), result), LispStatus::noDocument);
    EXPECT_FALSE(invokeLispForString(u"f", text));
    EXPECT_FALSE(readLispGlobal(u"f", text));
    EXPECT_FALSE(readLispGlobal(u"f", number));
    EXPECT_TRUE(lisp.calls().empty());
    EXPECT_TRUE(result.empty());
    EXPECT_EQ(text, u"before");
    EXPECT_EQ(number, 4711);
}

TEST_F(Lisp, stringFunctions_passTheirArgumentAndTakeTheResult) {
    lisp.answer(u"f", string(u"result"));
    EXPECT_TRUE(invokeLispForString(u"f", text));
    EXPECT_EQ(text, u"result");
    text.clear();
    EXPECT_TRUE(invokeLispForString(u"f", u"argument", text));
    EXPECT_EQ(text, u"result");
    const std::vector<std::vector<CString>> expected{{u"f"}, {u"f", u"argument"}};
    EXPECT_EQ(lisp.calls(), expected);
}

/// One text may be the argument and take the result.
TEST_F(Lisp, stringFunctionOfItsOwnOutput_replacesIt) {
    lisp.define(u"f", [](const HostResultBuffer& call, HostResultBuffer& out) {
        out.addString(*call.stringAt(1) + u"!");
        return LispStatus::success;
    });
    EXPECT_TRUE(invokeLispForString(u"f", text, text));
    EXPECT_EQ(text, u"before!");
}

struct WrongReply {
    const char* name;
    HostResultBuffer reply;
};

TEST_F(Lisp, resultsOfOtherTypes_leaveTheOutputAlone) {
    const WrongReply replies[] = {{"nothing", {}}, {"nil", HostResultBuffer().addNil()},
        {"T", HostResultBuffer().addTruth()}, {"real", HostResultBuffer().addReal(2.5)},
        {"list", HostResultBuffer().addListBegin().addString(u"x").addInteger(3).addListEnd()},
        {"nested list", HostResultBuffer().addNestedList(string(u"x"))}};
    for (const WrongReply& each : replies) {
        lisp.answer(u"f", each.reply);
        lisp.setVariable(u"G", each.reply);
        EXPECT_FALSE(invokeLispForString(u"f", text)) << each.name;
        EXPECT_FALSE(readLispGlobal(u"G", text)) << each.name;
        EXPECT_FALSE(readLispGlobal(u"G", number)) << each.name;
        EXPECT_EQ(text, u"before") << each.name;
        EXPECT_EQ(number, 4711) << each.name;
    }
}

TEST_F(Lisp, failingCallWithAResult_leavesTheOutputAlone) {
    const auto failing = [](const HostResultBuffer&, HostResultBuffer& out) {
        out.addString(u"rubbish");
        return static_cast<LispStatus>(5101);
    };
    lisp.define(u"f", failing);
    lisp.define(u"ryv_get_var", failing);
    EXPECT_EQ(static_cast<int>(invokeLisp(string(u"f"), result)), 5101);
    EXPECT_FALSE(invokeLispForString(u"f", text));
    EXPECT_FALSE(readLispGlobal(u"G", text));
    EXPECT_FALSE(readLispGlobal(u"G", number));
    EXPECT_EQ(text, u"before");
    EXPECT_EQ(number, 4711);
}

TEST_F(Lisp, globalAsNumber_isFoundByItsKindAndValue) {
    struct Case {
        HostResultBuffer value;
        bool found;
        int number;
    };
    const Case cases[] = {{HostResultBuffer().addInteger(0), true, 0},
        {HostResultBuffer().addInteger(-32768), true, -32768}, {string(u"0"), false, 0},
        {string(u""), false, 0}, {string(u"abc"), false, 0}, {string(u"-0"), false, 0},
        {string(u"12"), true, 12}, {string(u" 12 apples"), true, 12}, {string(u"-3"), true, -3},
        {string(u"70000"), true, 70000}};
    for (const Case& each : cases) {
        lisp.setVariable(u"G", each.value);
        int value = 4711;
        const CString* const shownText = each.value.stringAt(0);
        EXPECT_EQ(readLispGlobal(u"G", value), each.found) << shown(shownText ? *shownText : CString());
        EXPECT_EQ(value, each.number) << shown(shownText ? *shownText : CString());
    }
}

TEST_F(Lisp, globals_areAskedForByName) {
    lisp.setVariable(u"G", string(u"value"));
    EXPECT_TRUE(readLispGlobal(u"G", text));
    EXPECT_EQ(text, u"value");
    EXPECT_FALSE(readLispGlobal(u"H", text));
    const std::vector<std::vector<CString>> expected{{u"ryv_get_var", u"G"}, {u"ryv_get_var", u"H"}};
    EXPECT_EQ(lisp.calls(), expected);
}

TEST(LispExpressions, exposing_fillsTheBufferOfTheHostAndNoMore) {
    RecordingHost host;
    host.lisp.reply = HostResultBuffer().addNil();
    EXPECT_EQ(exposeLispFunction(u"kq_cfg_add_lay"), LispStatus::success);
    const std::vector<std::string> expected{"\"veval-str+\" \"(expose 'kq_cfg_add_lay)\""};
    EXPECT_EQ(host.lisp.calls, expected);
    host.lisp.status = static_cast<LispStatus>(5101);
    EXPECT_EQ(static_cast<int>(exposeLispFunction(CString(127 - 10, u'f'))), 5101);
    EXPECT_EQ(host.lisp.calls.size(), 2u);
    EXPECT_EQ(exposeLispFunction(CString(128 - 10, u'f')), LispStatus::failure);
    EXPECT_EQ(host.lisp.calls.size(), 2u);
    host.documents.current = DocumentId::none;
    EXPECT_EQ(exposeLispFunction(u"f"), LispStatus::noDocument);
    EXPECT_EQ(evaluateLisp(u"(f)"), LispStatus::noDocument);
    EXPECT_EQ(host.lisp.calls.size(), 2u);
}

TEST(LispExpressions, selectedDrawings_areSetAsAListInTheirOrder) {
    RecordingHost host;
    EXPECT_TRUE(setSelectedDrawings({u"b", u"a"}));
    EXPECT_TRUE(setSelectedDrawings({}));
    const std::vector<std::string> expected{R"(GBL_SELECTED_DWGS = ( "b" "a" ))", "GBL_SELECTED_DWGS = nil"};
    EXPECT_EQ(host.lisp.calls, expected);
    host.lisp.status = LispStatus::failure;
    EXPECT_FALSE(setSelectedDrawings({u"a"}));
    host.documents.current = DocumentId::none;
    EXPECT_FALSE(setSelectedDrawings({u"a"}));
    EXPECT_EQ(host.lisp.calls.size(), 3u);
}

} // namespace
} // namespace ryv::test
