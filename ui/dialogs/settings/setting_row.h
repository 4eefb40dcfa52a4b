// What a panel of settings is made of: constant rows, each a control and the setting that it edits.
#pragma once

#include "base/fold.h"
#include "resources/setting_message_numbers.h"
#include "toolkit/layout.h"
#include "ui/dialogs/settings/setting_source.h"
#include "ui/dialogs/settings/value_rules.h"

#include <algorithm>

namespace ryv {

/// Makes a control usable only while another one, on any panel of the same dialog, shows one of some values.
/// While that shows none of its choices, the control can be used.
struct SettingCondition {
    SettingKey key = {};
    CStringView values = {}; ///< with commas: "4,5"
    int bit = 0;             ///< of a row with a bit: which; the values are "1" and "0" then
};

/// Lets one of the package's own dialogs edit some settings. True when it changed any.
using SettingAction = bool (*)(SettingSource& settings);

struct SettingRow {
    SettingKey key = {};
    CStringView name; ///< for scripts
    int label = 0;    ///< number of the text
    ControlKind kind = ControlKind::text;
    std::span<const ChoiceLayout> choices = {};
    ValueRule rule = ValueRule::any;
    SettingCondition when = {};
    unsigned traits = 0;            ///< LayoutTraits
    int bit = 0;                    ///< a check box for one bit of a number; the other bits stay
    int explanation = 0;            ///< number of the text, behind the package's own of a drawing setting
    int unset = 0;                  ///< number of the text in an empty field whose default is empty, too
    CStringView absent = {};        ///< the choice that counts, and is shown, while the setting is absent
    SettingAction action = nullptr; ///< of a button

    /// The same row beside the one before it; usable under a condition.
    constexpr SettingRow beside() const noexcept {
        SettingRow row = *this;
        row.traits |= LayoutTraits::sameRow;
        return row;
    }
    constexpr SettingRow explained(int text) const noexcept {
        SettingRow row = *this;
        row.explanation = text;
        return row;
    }
    constexpr SettingRow onlyWhen(const SettingCondition& condition) const noexcept {
        SettingRow row = *this;
        row.when = condition;
        return row;
    }
};

struct SettingTable {
    int title = 0; ///< number of the text; 0 for none
    std::span<const SettingRow> rows;
    bool sameRow = false; ///< the panel stands beside the one before it
};

/// The control's ID, the same wherever the row stands: 1000 and the index of a drawing setting, 2000 and the
/// number of a miscellaneous one, 3000 of fields; 10000 more for a bit, 20000 more for a button.
constexpr int controlIdOf(const SettingRow& row) noexcept {
    int id = row.key.number;
    if (row.key.area == SettingArea::drawing)
        id += 1000;
    else if (row.key.area == SettingArea::misc)
        id += 2000;
    else
        id += row.key.area == SettingArea::project ? 3000 : 3100;
    if (row.bit != 0)
        id += 10000;
    return row.kind == ControlKind::button ? id + 20000 : id;
}

/// The choice that a stored code stands for, without regard to case; null when it is none of the row's.
inline const ChoiceLayout* choiceOf(const SettingRow& row, CStringView stored) {
    const auto hit = std::find_if(row.choices.begin(), row.choices.end(),
        [stored](const ChoiceLayout& choice) { return equalNoCase(choice.value, stored); });
    return hit == row.choices.end() ? nullptr : &*hit;
}

/// Rows of drawing settings, by index.
namespace setting_rows {

using Rule = ValueRule;

constexpr SettingRow row(int index, CStringView name, ControlKind kind) noexcept {
    SettingRow made;
    made.key = drawingSetting(index);
    made.name = name;
    made.label = message::settingLabels + index;
    made.kind = kind;
    return made;
}
constexpr SettingRow text(int index, CStringView name, ValueRule rule = Rule::any) noexcept {
    SettingRow made = row(index, name, ControlKind::text);
    made.rule = rule;
    return made;
}
constexpr SettingRow radio(int index, CStringView name, std::span<const ChoiceLayout> choices) noexcept {
    SettingRow made = row(index, name, ControlKind::radio);
    made.choices = choices;
    return made;
}
constexpr SettingRow combo(int index, CStringView name, std::span<const ChoiceLayout> choices) noexcept {
    SettingRow made = radio(index, name, choices);
    made.kind = ControlKind::combo;
    return made;
}
/// One that also takes what is none of its choices.
constexpr SettingRow openCombo(
    int index, CStringView name, std::span<const ChoiceLayout> choices, ValueRule rule = Rule::any) noexcept {
    SettingRow made = combo(index, name, choices);
    made.traits = LayoutTraits::editable;
    made.rule = rule;
    return made;
}
constexpr SettingRow button(int index, CStringView name, int label, SettingAction action) noexcept {
    SettingRow made = row(index, name, ControlKind::button);
    made.label = label;
    made.action = action;
    return made;
}

} // namespace setting_rows

} // namespace ryv
