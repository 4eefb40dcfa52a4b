#include "model/drawing_settings.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <set>

namespace ryv::test {
namespace {

using Status = RyvCfgDrawingSettings::Status;

/// The protected list operations, for testing them by themselves.
class Settings : public RyvCfgDrawingSettings {
public:
    using RyvCfgDrawingSettings::firstListInSecondList;
    using RyvCfgDrawingSettings::mergeWireLays;
};

struct Value {
    int index;
    CString text;
};

RyvCfgDrawingSettings with(std::initializer_list<Value> values) {
    RyvCfgDrawingSettings settings;
    for (const Value& each : values)
        settings.setValue(each.index, &each.text);
    return settings;
}

/// Present values as "5=a 26=b".
std::string shownValues(const RyvCfgDrawingSettings& settings) {
    std::string text;
    for (int index = 0; index <= 76; ++index)
        if (const CString* const value = settings.find(index))
            text += (text.empty() ? "" : " ") + std::to_string(index) + "=" + toUtf8(*value);
    return text;
}

TEST(DrawingSettings, values_arePresentWhenEmptyAndAbsentWhenNull) {
    RyvCfgDrawingSettings settings = with({{0, u"x"}, {76, u""}});
    CString value = u"before";
    EXPECT_EQ(settings.getValue(76, value), Status::present);
    EXPECT_EQ(value, u"");
    EXPECT_EQ(settings.getValue(0, value), Status::present);
    EXPECT_EQ(value, u"x");
    EXPECT_EQ(settings.setValue(0, nullptr), Status::present);
    EXPECT_EQ(settings.getValue(0, value), Status::absent);
    settings.reInitializeData();
    EXPECT_EQ(shownValues(settings), "");
}

TEST(DrawingSettings, indicesOutside_haveTheirStatus) {
    const CString text = u"x";
    for (const int index : {-2147483647 - 1, -1, 77, 2147483647}) {
        RyvCfgDrawingSettings settings;
        CString value = u"before";
        EXPECT_EQ(settings.getValue(index, value), Status::present) << index;
        EXPECT_EQ(value, u"before") << index;
        EXPECT_EQ(settings.setValue(index, &text), index > 76 ? Status::badIndex : Status::present) << index;
        EXPECT_EQ(settings.setValue(index, nullptr), index > 76 ? Status::badIndex : Status::present)
            << index;
        EXPECT_EQ(shownValues(settings), "") << index;
        EXPECT_FALSE(RyvCfgDrawingSettings::getKQ_MTagForIndex(index, value)) << index;
        EXPECT_FALSE(RyvCfgDrawingSettings::getMessageKeyForIndex(index, value)) << index;
        EXPECT_EQ(value, u"before") << index;
    }
    EXPECT_EQ(static_cast<int>(Status::present), 1);
    EXPECT_EQ(static_cast<int>(Status::absent), 2);
    EXPECT_EQ(static_cast<int>(Status::badIndex), 3);
}

TEST(DrawingSettings, names_areAllDifferentAndFoundAgain) {
    std::set<CString> keys;
    int withKey = 0;
    for (int index = 0; index <= RyvCfgDrawingSettings::getMaxBracketIndex(); ++index) {
        CString tag;
        CString key;
        ASSERT_TRUE(RyvCfgDrawingSettings::getKQ_MTagForIndex(index, tag));
        EXPECT_EQ(RyvCfgDrawingSettings::getIndexForKQ_MTag(tag), index) << shown(tag);
        if (RyvCfgDrawingSettings::getMessageKeyForIndex(index, key)) {
            keys.insert(key);
            ++withKey;
        }
    }
    EXPECT_EQ(withKey, 51);
    EXPECT_EQ(keys.size(), 51u);
}

TEST(DrawingSettings, lookupOfNames_ignoresCaseAndTheAlternative) {
    EXPECT_EQ(RyvCfgDrawingSettings::getIndexForKQ_MTag(u"runghorv"), 0);
    EXPECT_EQ(RyvCfgDrawingSettings::getIndexForKQ_MTag(CString(u"wnum_GAP")), 76);
    EXPECT_EQ(RyvCfgDrawingSettings::getIndexForKQ_MTag(u"SHEET_"), -1);
    EXPECT_EQ(RyvCfgDrawingSettings::getIndexForKQ_MTag(u""), -1);
    EXPECT_EQ(RyvCfgDrawingSettings::getIndexForKQ_MTag(nullptr), -1);
    for (int index = -1; index <= 77; ++index) {
        CString tag;
        EXPECT_EQ(RyvCfgDrawingSettings::getKQ_MAltTagForIndex(index, tag), index == 13);
        EXPECT_EQ(tag, index == 13 ? u"SHEET_" : u"");
    }
}

TEST(DrawingSettings, assignment_merges) {
    RyvCfgDrawingSettings target = with({{1, u"one"}, {2, u"two"}});
    target = with({{2, u"TWO"}, {3, u""}});
    EXPECT_EQ(shownValues(target), "1=one 2=TWO 3=");
    const RyvCfgDrawingSettings copy(target);
    EXPECT_EQ(shownValues(copy), "1=one 2=TWO 3=");
    const RyvCfgDrawingSettings& same = target;
    target = same;
    EXPECT_EQ(shownValues(target), "1=one 2=TWO 3=");
}

TEST(DrawingSettings, comparisons_agreeWithTheirRules) {
    struct Case {
        const char* name;
        RyvCfgDrawingSettings mine;
        RyvCfgDrawingSettings other;
        bool equal;
        bool equalBetweenDrawings;
    };
    const Case cases[] = {{"nothing", {}, {}, true, true},
        {"present and absent", with({{5, u""}}), {}, false, false},
        {"case", with({{26, u"wires"}}), with({{26, u"WIRES"}}), true, true},
        {"text", with({{5, u"a"}}), with({{5, u"b"}}), false, false},
        {"sheet", with({{13, u"1"}}), with({{13, u"2"}}), false, true},
        {"sheet name", with({{46, u"1"}}), {}, false, true},
        {"codes", with({{51, u"1"}, {52, u"2"}}), with({{53, u"3"}}), false, true},
        {"neighbours of codes", with({{50, u"1"}}), with({{50, u"2"}}), false, false},
        {"more layers here", with({{26, u"WIRES,PWR"}}), with({{26, u"WIRES"}}), false, true},
        {"more layers there", with({{26, u"WIRES"}}), with({{26, u"WIRES,PWR"}}), false, false},
        {"order of layers", with({{26, u"a , B"}}), with({{26, u"b,A"}}), false, true},
        {"part of a layer", with({{26, u"WIRES2"}}), with({{26, u"WIRES"}}), false, false},
        {"no layers there", with({{26, u"WIRES"}}), with({{26, u""}}), false, true},
        {"layers absent there", with({{26, u"WIRES"}}), {}, false, false},
        {"layers of another kind", with({{56, u"A,B"}}), with({{56, u"A"}}), false, false}};
    for (const Case& each : cases) {
        EXPECT_EQ(each.mine == each.other, each.equal) << each.name;
        EXPECT_EQ(each.other == each.mine, each.equal) << each.name;
        EXPECT_EQ(each.mine.CompareNonDrawingSpecificValues(each.other), each.equalBetweenDrawings)
            << each.name;
    }
}

TEST(DrawingSettings, copyBetweenDrawings_leavesOutWhatIsTheirs) {
    const RyvCfgDrawingSettings other = with(
        {{0, u"V"}, {13, u"9"}, {26, u"A,B"}, {46, u"n"}, {51, u"p"}, {52, u"i"}, {53, u"l"}, {76, u""}});
    struct Case {
        const char* name;
        RyvCfgDrawingSettings mine;
        bool clearAbsent;
        std::string result;
    };
    const Case cases[] = {{"into nothing", {}, false, "0=V 26=A,B 76="},
        {"keeps the rest", with({{1, u"x"}, {13, u"2"}, {26, u"b,C"}}), false, "0=V 1=x 13=2 26=b,C,A 76="},
        {"clears the rest", with({{1, u"x"}, {13, u"2"}, {51, u"q"}}), true, "0=V 13=2 26=A,B 51=q 76="}};
    for (Case each : cases) {
        each.mine.CopyNonDrawingSpecificValues(other, each.clearAbsent);
        EXPECT_EQ(shownValues(each.mine), each.result) << each.name;
    }
    RyvCfgDrawingSettings layers = with({{26, u"A"}});
    layers.CopyNonDrawingSpecificValues({}, true);
    EXPECT_EQ(shownValues(layers), "") << "absent there: cleared, not merged";
}

TEST(DrawingSettings, layerLists_areMergedWithoutDoubling) {
    struct Case {
        CString first;
        CString second;
        CString merged;
    };
    const Case cases[] = {{u"A,B", u"b,C", u"b,C,A"}, {u"", u"X", u"X"}, {u"X, Y", u"", u"X, Y"},
        {u"", u"", u""}, {u"a", u"A", u"A"}, {u" A ,B", u"C", u"C,A,B"}, {u"A,a,A", u"B", u"B,A"},
        {u"AB", u"A,B", u"A,B,AB"}};
    for (const Case& each : cases) {
        CString second = each.second;
        EXPECT_TRUE(Settings::mergeWireLays(each.first, second));
        EXPECT_EQ(second, each.merged) << shown(each.first) << " into " << shown(each.second);
        EXPECT_TRUE(Settings::firstListInSecondList(each.first, second));
    }
    EXPECT_FALSE(Settings::firstListInSecondList(u"A,B", u"B"));
    EXPECT_TRUE(Settings::firstListInSecondList(u"", u""));
    EXPECT_FALSE(Settings::firstListInSecondList(u"A", u""));
}

} // namespace
} // namespace ryv::test
