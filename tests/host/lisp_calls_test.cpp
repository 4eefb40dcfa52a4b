// Every function of the module under calls that nobody should make.
#include "tests/host/lisp_fixture.h"

#include <map>

namespace ryv::test {
namespace {

/// A function, the kinds of arguments that it has to have, and what calls of it come to. Kinds: 's' text, 'i'
/// 16-bit number, 'n' text or nil, 'd' a drawing (text, number or nil), 'l' list of sixteen texts.
struct Case {
    const char16_t* name;
    std::string kinds;
    std::string right;         ///< with the arguments that it has to have, and more behind them
    std::string afterShutDown; ///< the same after the module's end
    std::string odd = {}; ///< first text: empty, very long, with a very long name, of no file, of a folder
    std::string wrong = "nil/3"; ///< any argument missing or of another kind

    friend void PrintTo(const Case& shown, std::ostream* out) { *out << toAscii(shown.name); }
};

const std::vector<Case> cases{
    {u"ryv_loadlastprojects", "", "nil/1", "nil/3"},
    {u"ryv_openproject", "si", "T/1", "nil/3", "nil/1 nil/1 nil/1 nil/1 nil/1"},
    {u"ryv_virtuallockproject", "si", "1/1", "0/3", "0/1 0/1 0/1 1/1 1/1", "0/3"},
    {u"ryv_getprojectlockstatus", "s", "1/1", "nil/3", "0/1 6/1 6/1 6/1 1/1"},
    {u"ryv_getprojectwholocked", "s", "\"\"/1", "nil/3", "nil/1 <127>/1 <127>/1 <127>/1 \"\"/1"},
    {u"ryv_getdwgwholocked", "s", "\"\"/1", "nil/3", "nil/1 <127>/1 <127>/1 <127>/1 \"\"/1"},
    {u"ryv_getdwglockstatus", "s", "1/1", "nil/3", "0/1 6/1 6/1 6/1 1/1"},
    {u"ryv_getactiveproject", "", "ACTIVE/1", "nil/3"},
    {u"ryv_closeproject", "s", "nil/1", "nil/3", "nil/1 nil/1 nil/1 nil/1 nil/1"},
    {u"ryv_isProjectSameNameAsExisting", "s", "0/1", "nil/3", "0/1 0/1 0/1 0/1 0/1"},
    {u"ryv_croverridedlg", "l", "nil/1", "nil/1"},
    {u"ryv_rereadproject", "n", "nil/1", "nil/3", "T/1 nil/1 nil/1 nil/1 nil/1"},
    {u"ryv_getelecregsetting", "ss", "nil/1", "nil/1", "nil/1 nil/1 nil/1 nil/1 nil/1"},
    {u"ryv_setelecregsetting", "sss", "T/1", "T/1", "T/1 T/1 T/1 T/1 T/1"},
    {u"ryv_ensureKQMandattribsexist", "d", "nil/1", "nil/1", "nil/1 nil/1 nil/1 nil/1 nil/1"},
    {u"ryv_beginwaitcursor", "", "T/1", "T/1"},
    {u"ryv_endwaitcursor", "", "nil/1", "nil/1"},
    {u"ryv_circ_tempfile", "", "\"\"/1", "nil/3"},
    {u"ryv_updateLastProjectFile", "ss", "T/1", "T/1", "nil/3 nil/3 nil/3 T/1 T/1"},
    {u"ryv_taskdialog", "s", "2/1", "2/1", "2/1 2/1 2/1 2/1 2/1"},
    {u"ryv_copy_file", "ss", "nil/1", "nil/1", "nil/1 nil/1 nil/1 nil/1 nil/1"},
    {u"ryv_delete_file", "s", "T/1", "T/1", "nil/1 nil/1 nil/1 nil/1 nil/1"},
    {u"ryv_isOZMProject", "", "0/1", "nil/3"},
    {u"ryv_getprojectcount", "", "1/1", "nil/3"},
};

class LispCallsTest : public LispFixture, public ::testing::WithParamInterface<Case> {
protected:
    static constexpr std::size_t veryLong = 1 << 20;
    static constexpr std::string_view everyKind = "sibr0t2LN";

    /// A value of a kind; of the kinds that functions ask for, one that is right.
    void add(HostResultBuffer& chain, char kind) const {
        switch (kind) {
        case 's':
        case 'n':
        case 'd':
            chain.addString(path("b.kqp"));
            break;
        case 'i':
            chain.addInteger(1);
            break;
        case 'b':
            chain.addLongInteger(100'000);
            break;
        case 'r':
            chain.addReal(1);
            break;
        case '0':
            chain.addNil();
            break;
        case 't':
            chain.addTruth();
            break;
        case '2':
            chain.addListBegin().addString(u"a").addDot().addString(u"b").addListEnd();
            break;
        case 'l':
            chain.addStrings(CStringArray(16, u"x"));
            break;
        case 'L':
            chain.addStrings(CStringArray(17, u"x"));
            break;
        case 'N':
            chain.addNestedList(HostResultBuffer().addString(u"x").addListEnd());
            break;
        }
    }
    HostResultBuffer values(std::string_view kinds) const {
        HostResultBuffer chain;
        for (const char kind : kinds)
            add(chain, kind);
        return chain;
    }
    static bool accepts(char wanted, char kind) {
        static const std::map<char, std::string_view> accepted{
            {'s', "s"}, {'i', "i"}, {'n', "s0"}, {'d', "sib0"}, {'l', ""}};
        return accepted.at(wanted).find(kind) != std::string_view::npos;
    }
    std::string expected(std::string reply) const {
        const std::size_t mark = reply.find("ACTIVE");
        return mark == std::string::npos ? reply : reply.replace(mark, 6, shown(path("a.kqp")));
    }
};

TEST_P(LispCallsTest, rightArguments_whateverComesBehind) {
    EXPECT_EQ(call(GetParam().name, values(GetParam().kinds + "rLt2s")), expected(GetParam().right));
}

TEST_P(LispCallsTest, missingOrWrongArguments_areToldByTheStatus) {
    const std::string& kinds = GetParam().kinds;
    for (std::size_t i = 0; i < kinds.size(); ++i) {
        const std::string before = kinds.substr(0, i);
        EXPECT_EQ(call(GetParam().name, values(before)), GetParam().wrong) << "without number " << i;
        for (const char kind : everyKind)
            if (!accepts(kinds[i], kind))
                EXPECT_EQ(
                    call(GetParam().name, values(before + kind + kinds.substr(i + 1))), GetParam().wrong)
                    << "number " << i << " of kind " << kind;
    }
    EXPECT_EQ(projects(), "A*");
}

TEST_P(LispCallsTest, oddPaths_areAnsweredLikeOthers) {
    if (GetParam().odd.empty())
        return;
    std::string replies;
    for (const CString& text : {CString(), CString(veryLong, u'/'), path(std::string(veryLong, 'x')),
             path("none.kqp"), path("sub")}) {
        HostResultBuffer chain = HostResultBuffer().addString(text);
        for (const char kind : GetParam().kinds.substr(1))
            add(chain, kind);
        replies += (replies.empty() ? "" : " ") + call(GetParam().name, chain);
    }
    EXPECT_EQ(replies, GetParam().odd);
    EXPECT_TRUE(stands("sub"));
}

TEST_P(LispCallsTest, afterShutDown_nothingIsTouched) {
    state.destroyProjectManager();
    setNavState(nullptr);
    EXPECT_EQ(call(GetParam().name, values(GetParam().kinds)), GetParam().afterShutDown);
    setPlatform(nullptr);
    call(GetParam().name, values(GetParam().kinds));
}

INSTANTIATE_TEST_SUITE_P(All, LispCallsTest, ::testing::ValuesIn(cases),
    [](const auto& info) { return toAscii(info.param.name); });

} // namespace
} // namespace ryv::test
