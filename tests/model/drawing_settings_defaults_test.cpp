// The defaults of drawing settings: fixed ones, those by the project's settings, those that the host knows
// better.
#include "model/drawing_settings.h"
#include "tests/support/scripted_platform.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

namespace ryv::test {

namespace {

class DrawingSettingsDefaults : public ::testing::Test {
protected:
    static RyvPmMiscProjSettings misc(std::initializer_list<std::pair<int, CString>> values) {
        RyvPmMiscProjSettings record;
        for (const auto& [index, value] : values)
            record.setValue(index, &value);
        return record;
    }
    static CString valueOf(const RyvCfgDrawingSettings& record, int index) {
        const CString* const value = record.find(index);
        return value ? *value : u"(absent)";
    }
    void expectTail(std::initializer_list<CString> from71) const {
        int index = 71;
        for (const CString& expected : from71)
            EXPECT_EQ(valueOf(settings, index++), expected);
    }

    ScriptedPlatform surroundings;
    RyvCfgDrawingSettings settings;
};

TEST_F(DrawingSettingsDefaults, fixedOnes_standAtTheirIndex) {
    const std::pair<int, CString> rows[] = {{0, u"H"}, {1, u"1"}, {2, u"R"}, {4, u",A,B,C,D,E,F,G,H,J"},
        {5, u"%F%N"}, {8, u",A,B,C,D,E,F,G,H,J,K,L,M,N"}, {11, u"0.75"}, {12, u"4.5"}, {13, u""},
        {17, u"0.5"}, {19, u""}, {20, u"2.0"}, {22, u"A"}, {24, u"1"}, {25, u"-"}, {26, u"WIRES"},
        {29, u"WIREFIXED"}, {36, u"XREFCHILD"}, {37, u"DESCCHILD"}, {41, u"0"}, {45, u"SYMS"}, {46, u""},
        {49, u"1"}, {50, u"0"}, {55, u""}, {56, u"_MULTI_WIRE"}, {58, u"LOCBOX"}, {59, u""}};
    settings.fillWithDefaults();
    for (const auto& [index, expected] : rows)
        EXPECT_EQ(valueOf(settings, index), expected) << index;
    for (int index = 0; index <= 76; ++index)
        EXPECT_NE(settings.find(index), nullptr) << index;
}

TEST_F(DrawingSettingsDefaults, withoutAProject_dependentOnesAreFixedToo) {
    settings.fillWithDefaults();
    const CString expected[] = {
        u"0", u"0", u"0", u"", u"0", u",", u"1", u"0", u"NO,NC,NONC", u"Standard", u"%T"};
    for (int index = 60; index <= 70; ++index)
        EXPECT_EQ(valueOf(settings, index), expected[index - 60]) << index;
    expectTail({u"1,2,3,5", u"W1,T1,TYPE,T2,W2,REF,SH,SHDWGNAM,FILENAME,FULLFILENAM",
        u"MC,MC,MC,MC,MC,MC,MC,MC,L,L", u"0.0", u"1", u"0.0,0.0,0.0"});
}

TEST_F(DrawingSettingsDefaults, dependentOnes_followTheMiscellaneousSettings) {
    struct Case {
        const char* name;
        RyvPmMiscProjSettings misc;
        std::vector<CString> from60; // 60 to 67
    };
    const Case cases[] = {
        {"nothing", {}, {u"0", u"0", u"0", u"", u"0", u",", u"1", u"0"}},
        {"bit 8", misc({{5, u"8"}}), {u"1", u"0", u"0", u"", u"0", u",", u"0", u"1"}},
        {"bit 8 among others", misc({{5, u" 15 "}}), {u"1", u"0", u"0", u"", u"0", u",", u"0", u"1"}},
        {"other bits", misc({{5, u"23"}}), {u"0", u"0", u"0", u"", u"0", u",", u"1", u"0"}},
        {"no number", misc({{5, u"x8"}}), {u"0", u"0", u"0", u"", u"0", u",", u"1", u"0"}},
        {"fill with", misc({{7, u" ..."}}), {u"0", u"1", u"0", u" ...", u"0", u",", u"1", u"0"}},
        {"fill with nothing", misc({{7, u""}}), {u"0", u"0", u"0", u"", u"0", u",", u"1", u"0"}},
        {"sort", misc({{28, u"1"}}), {u"0", u"0", u"0", u"", u"1", u",", u"1", u"0"}},
        {"sort otherwise", misc({{28, u"2"}}), {u"0", u"0", u"0", u"", u"0", u",", u"1", u"0"}},
        {"blank between", misc({{8, u"1"}}), {u"0", u"0", u"0", u"", u"0", u", ", u"1", u"0"}},
        {"no blank between", misc({{8, u"11"}}), {u"0", u"0", u"0", u"", u"0", u",", u"1", u"0"}},
    };
    for (const Case& each : cases) {
        RyvCfgDrawingSettings filled;
        filled.fillWithDefaults(each.misc);
        for (int index = 60; index <= 67; ++index)
            EXPECT_EQ(valueOf(filled, index), each.from60[static_cast<std::size_t>(index - 60)])
                << each.name << ", " << index;
        EXPECT_EQ(valueOf(filled, 68), u"NO,NC,NONC") << each.name;
        EXPECT_EQ(valueOf(filled, 0), u"H") << each.name;
    }
}

TEST_F(DrawingSettingsDefaults, defaults_replaceWhatWasThere) {
    const CString other = u"other";
    for (int index = 0; index <= 76; ++index)
        settings.setValue(index, &other);
    settings.fillWithDefaults(misc({}));
    RyvCfgDrawingSettings fresh;
    fresh.fillWithDefaults();
    EXPECT_TRUE(settings == fresh);
}

TEST_F(DrawingSettingsDefaults, openDocument_givesTheTables) {
    surroundings.documents.open = true;
    surroundings.lisp.answer(u"kq_xref_tbl_indexlst", HostResultBuffer().addString(u"9,8"));
    surroundings.lisp.answer(u"kq_xref_tbl_fldnams", HostResultBuffer().addString(u"NAMES"));
    surroundings.lisp.answer(u"kq_xref_tbl_jstlst", HostResultBuffer().addString(u""));
    surroundings.lisp.answer(u"kq_kqp_get_dwg_WNUM_GAP_settings", HostResultBuffer().addString(u"1,2,3"));
    settings.fillWithDefaults(misc({}));
    expectTail({u"9,8", u"NAMES", u"", u"0.0", u"1", u"1,2,3"});
    const std::vector<std::vector<CString>> calls{{u"kq_xref_tbl_indexlst"}, {u"kq_xref_tbl_fldnams"},
        {u"kq_xref_tbl_jstlst"}, {u"kq_kqp_get_dwg_WNUM_GAP_settings"}};
    EXPECT_EQ(surroundings.lisp.calls(), calls) << "each without arguments";
}

TEST_F(DrawingSettingsDefaults, failingCalls_keepTheFixedTables) {
    surroundings.documents.open = true;
    surroundings.lisp.fail(u"kq_xref_tbl_indexlst");
    surroundings.lisp.answer(u"kq_xref_tbl_fldnams", HostResultBuffer().addNil());
    surroundings.lisp.answer(u"kq_xref_tbl_jstlst", HostResultBuffer().addInteger(3));
    settings.fillWithDefaults();
    expectTail({u"1,2,3,5", u"W1,T1,TYPE,T2,W2,REF,SH,SHDWGNAM,FILENAME,FULLFILENAM",
        u"MC,MC,MC,MC,MC,MC,MC,MC,L,L", u"0.0", u"1", u"0.0,0.0,0.0"});
}

TEST_F(DrawingSettingsDefaults, withoutADocument_nothingIsCalled) {
    surroundings.lisp.answer(u"kq_xref_tbl_indexlst", HostResultBuffer().addString(u"9,8"));
    settings.fillWithDefaults(misc({}));
    EXPECT_TRUE(surroundings.lisp.calls().empty());
    EXPECT_EQ(valueOf(settings, 71), u"1,2,3,5");
}

} // namespace

} // namespace ryv::test
