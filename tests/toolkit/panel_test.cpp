#include "tests/support/sample_dialog.h"
#include "toolkit/check_box.h"
#include "toolkit/combo_box.h"
#include "toolkit/radio_group.h"
#include "toolkit/text_field.h"

#include <gtest/gtest.h>

#include <map>

namespace ryv::test {
namespace {

class MapBinding : public Binding {
public:
    std::map<CString, CString> values;
    CStringArray written;

    std::optional<CString> value(const Control& control) const override {
        const auto hit = values.find(control.name());
        return hit == values.end() ? std::nullopt : std::optional(hit->second);
    }
    void setValue(const Control& control, CStringView value) override {
        written.push_back(control.name());
        values[control.name()] = value;
    }
};

class PanelTest : public testing::Test {
protected:
    MapBinding record;
    Panel first{sample::panels[0]};
    Panel second{sample::panels[1]};
    void load() {
        first.load(record);
        second.load(record);
    }
    void store() {
        first.store(record);
        second.store(record);
    }
};

TEST_F(PanelTest, store_afterLoad_changesNothingThatTheUserHasNotTouched) {
    record.values = {{u"name", u"a name that is too long for the field"}, {u"ownFolder", u"off"},
        {u"direction", u"X"}, {u"format", u"A5"}, {u"remark", u"own text"}};
    const auto before = record.values;
    load();
    EXPECT_EQ(first.control<TextField>(sample::name).text(), before.at(u"name"));
    EXPECT_FALSE(first.control<RadioGroup>(sample::direction).chosen());
    EXPECT_EQ(second.control<ComboBox>(sample::remark).text(), u"own text");
    store();
    EXPECT_EQ(record.values, before);
    EXPECT_TRUE(record.written.empty()) << "what it could not show and what it shows already stay";
}

TEST_F(PanelTest, store_afterTheUser_writesStoredValuesOfWhatWasTouched) {
    record.values = {{u"name", u"n"}, {u"ownFolder", u"0"}, {u"direction", u"H"}, {u"format", u"A3"}};
    load();
    first.control<CheckBox>(sample::own).click();
    EXPECT_TRUE(first.control<RadioGroup>(sample::direction).choose(1));
    EXPECT_TRUE(second.control<ComboBox>(sample::format).choose(2));
    EXPECT_TRUE(second.control<TextField>(sample::notes).type(u"not in the record"));
    store();
    EXPECT_EQ(record.values, (std::map<CString, CString>{{u"name", u"n"}, {u"ownFolder", u"1"},
                                 {u"direction", u"V"}, {u"format", u"Letter; US"}}));
}

CStringView numberedText(int number) {
    return number == 130 ? u"From the catalogue" : u"";
}

TEST(Panel, numbersOfTexts_areLookedUp) {
    static constexpr std::array<ChoiceLayout, 1> choices = {{{130, u"V"}}};
    static constexpr std::array<ControlLayout, 1> controls = {
        {{ControlKind::combo, 1, u"", 130, 0, 0, choices}}};
    const Panel panel(PanelLayout{130, controls}, &numberedText);
    EXPECT_EQ(panel.title(), u"From the catalogue");
    EXPECT_EQ(panel.control<ComboBox>(1).label(), u"From the catalogue");
    EXPECT_EQ(panel.control<ComboBox>(1).rows()[0], (Choice{u"From the catalogue", u"V"}));
}

} // namespace
} // namespace ryv::test
