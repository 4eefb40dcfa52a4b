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

TEST_F(DrawingSettingsDefaults, dependentOnes_followTheMiscellaneousSettings) {
    struct Case {
        const char* name;
        RyvPmMiscProjSettings misc;
        std::vector<CString> from60; // 60 to 67
    };
    const Case cases[] = {{"nothing", {}, {u"0", u"0", u"0", u"", u"0", u",", u"1", u"0"}},
        {"bit 8", misc({{5, u"8"}}), {u"1", u"0", u"0", u"", u"0", u",", u"0", u"1"}},
        {"bit 8 among others", misc({{5, u" 15 "}}), {u"1", u"0", u"0", u"", u"0", u",", u"0", u"1"}},
        {"other bits", misc({{5, u"23"}}), {u"0", u"0", u"0", u"", u"0", u",", u"1", u"0"}},
        {"no number", misc({{5, u"x8"}}), {u"0", u"0", u"0", u"", u"0", u",", u"1", u"0"}},
        {"fill with", misc({{7, u" ..."}}), {u"0", u"1", u"0", u" ...", u"0", u",", u"1", u"0"}},
        {"fill with nothing", misc({{7, u""}}), {u"0", u"0", u"0", u"", u"0", u",", u"1", u"0"}},
        {"sort", misc({{28, u"1"}}), {u"0", u"0", u"0", u"", u"1", u",", u"1", u"0"}},
        {"sort otherwise", misc({{28, u"2"}}), {u"0", u"0", u"0", u"", u"0", u",", u"1", u"0"}},
        {"blank between", misc({{8, u"1"}}), {u"0", u"0", u"0", u"", u"0", u", ", u"1", u"0"}},
        {"no blank between", misc({{8, u"11"}}), {u"0", u"0", u"0", u"", u"0", u",", u"1", u"0"}}};
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
    settings.fillWithDefaults(nullptr, false);
    expectTail({u"1,2,3,5", u"W1,T1,TYPE,T2,W2,REF,SH,SHDWGNAM,FILENAME,FULLFILENAM",
        u"MC,MC,MC,MC,MC,MC,MC,MC,L,L", u"0.0", u"1", u"0.0,0.0,0.0"});
}

} // namespace
} // namespace ryv::test
