#include "bridge/recent_projects.h"
#include "tests/bridge/recording_host.h"

#include <gtest/gtest.h>

namespace ryv::test {
namespace {

/// A chain from letters: list marks, "n" nil, "T", "3" a number; any other letter is a string of it.
HostResultBuffer chain(std::string_view letters) {
    HostResultBuffer result;
    for (const char letter : letters) {
        if (letter == '(')
            result.addListBegin();
        else if (letter == ')')
            result.addListEnd();
        else if (letter == 'n')
            result.addNil();
        else if (letter == 'T')
            result.addTruth();
        else if (letter == '3')
            result.addInteger(3);
        else
            result.addString(CString(1, static_cast<char16_t>(letter)));
    }
    return result;
}

std::string joined(const CStringArray& texts) {
    std::string line;
    for (const CString& text : texts)
        line += toAscii(text);
    return line;
}

struct Case {
    const char* answer;
    const char* paths;
    const char* flags;
};

TEST(RecentProjects, answers_areReadByTheirMarksAlone) {
    const Case cases[] = {{"(ab)(x)(y)(z)(21)", "ab", "21"}, {"(ab)(x)(y)(z)(2)", "ab", "2"},
        {"(a)(x(y))((z)w)(v)(1)", "a", "1"}, // lists inside lists do not count
        {"(a)uTn3(x)v(y)(z)(1)", "a", "1"},  // nor does what stands between them
        {"(a)(x)(y)(z)(12n0)", "a", "12"},   // flags end at the first other value
        {"(a)(x)(y)(z)(12", "a", "12"},      // or with the answer
        {"(a)(x)(y)(z)((1))", "a", ""},      // or at once
        {"(a)(x)(y)(z)(1)(2)", "a", "1"},    // a fifth list is not looked at
        {"(a)(x)(y)(1)", "a", ""},           // too few lists
        {"(a)(x)n(y)(1)", "a", ""},          // an empty list is nil
        {"(a))(x)(y)(z)(1)(2)(3)", "a", ""}, // a stray list end hides the lists behind it
        {"(a))((x)(y)(z)(1)", "a", "1"},     // until another list begins
        {"(ab", "ab", ""},                   // no end of the paths
        {"(abnc)(x)(y)(z)(1)", "ab", ""},    // another value among the paths ends everything
        {"(a3)(x)(y)(z)(1)", "a", ""}, {"(a(b))(x)(y)(z)(1)", "a", ""}, {"()(x)(y)(z)(1)", "", "1"},
        {"n(x)(y)(z)(1)", "", ""}, {"ab", "", ""}, {"n", "", ""}, {"", "", ""}, {"(", "", ""}};
    RecordingHost host;
    for (const Case& each : cases) {
        host.lisp.reply = chain(each.answer);
        RecentProjects read{{u"old"}, {u"old", u"older"}};
        EXPECT_EQ(readRecentProjects(read), *each.paths || *each.flags) << each.answer;
        EXPECT_EQ(joined(read.paths), each.paths) << each.answer;
        EXPECT_EQ(joined(read.flags), each.flags) << each.answer;
    }
    EXPECT_EQ(host.lisp.calls[0], R"("c:kq_get_recent_prj_lst")");
}

TEST(RecentProjects, failedCall_leavesTheListAlone) {
    RecordingHost host;
    host.lisp.reply = chain("(a)(x)(y)(z)(1)");
    host.lisp.status = LispStatus::failure;
    RecentProjects read{{u"old"}, {}};
    EXPECT_FALSE(readRecentProjects(read));
    host.documents.current = DocumentId::none;
    host.lisp.status = LispStatus::success;
    EXPECT_FALSE(readRecentProjects(read));
    EXPECT_EQ(joined(read.paths), "old");
}

} // namespace
} // namespace ryv::test
