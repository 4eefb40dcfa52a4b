#include "ui/dialogs/settings/settings_panel.h"

#include "base/format.h"
#include "base/text.h"
#include "model/setting_value.h"
#include "resources/messages.h"
#include "resources/setting_message_numbers.h"
#include "toolkit/combo_box.h"
#include "toolkit/control_value.h"
#include "toolkit/radio_group.h"
#include "toolkit/text_field.h"
#include "ui/dialogs/settings/panel_group.h"
#include "ui/dialogs/settings/setting_description.h"

#include <algorithm>

namespace ryv {

namespace {

std::vector<ControlLayout> layoutsOf(std::span<const SettingRow> rows) {
    std::vector<ControlLayout> layouts;
    for (const SettingRow& row : rows)
        layouts.push_back({row.kind, controlIdOf(row), row.name, row.label, row.traits, 0, row.choices});
    return layouts;
}

/// Whether the control has nothing to show for a value that is none of its choices.
bool showsChoicesOnly(const Control& control) {
    const auto* const box = dynamic_cast<const ComboBox*>(&control);
    return box ? !box->isEditable() : control.kind() == ControlKind::radio;
}

void addLine(CString& text, int line) {
    text += (text.empty() ? u"" : u"\n") + CString(messageText(line));
}

bool isNumeric(ValueRule rule) {
    return rule == ValueRule::number || rule == ValueRule::positive || rule == ValueRule::wholeNumber ||
           rule == ValueRule::threeNumbers;
}

CString withBit(CStringView number, int bit, bool on) {
    const int flags = leadingInteger(number);
    return toText(on ? flags | bit : flags & ~bit);
}

} // namespace

/// The settings that were loaded as the panel's controls show them. What differs goes to `target`.
class SettingsPanel::RowBinding final : public Binding {
public:
    RowBinding(const SettingsPanel& panel, SettingSource* target) : panel_(panel), target_(target) {}

    std::optional<CString> value(const Control& control) const override {
        const SettingRow* const row = panel_.rowOf(control);
        if (!row || row->kind == ControlKind::button)
            return std::nullopt;
        const std::optional<CString> stored = panel_.loaded(control.id());
        if (row->bit != 0)
            return (leadingInteger(stored.value_or(CString())) & row->bit) != 0 ? u"1" : u"0";
        if (!stored)
            return row->kind == ControlKind::checkBox ? u"0" : CString(row->absent);
        const ChoiceLayout* const choice = choiceOf(*row, *stored);
        return choice ? CString(choice->value) : *stored;
    }

    void setValue(const Control& control, CStringView value) override {
        const SettingRow& row = *panel_.rowOf(control);
        if (row.bit != 0)
            target_->setValue(row.key, withBit(textOf(*target_, row.key), row.bit, value == u"1"));
        else
            target_->setValue(row.key, value);
    }

private:
    const SettingsPanel& panel_;
    SettingSource* target_;
};

SettingsPanel::SettingsPanel(const SettingTable& table)
    : Panel({table.title, layoutsOf(table.rows), table.sameRow}, messageText), rows_(table.rows) {
    for (const SettingRow& row : rows_)
        if (row.kind == ControlKind::text)
            control<TextField>(controlIdOf(row)).setBrief(isNumeric(row.rule));
}

const SettingRow* SettingsPanel::rowOf(const Control& control) const noexcept {
    const auto hit = std::find_if(rows_.begin(), rows_.end(),
        [&control](const SettingRow& row) { return controlIdOf(row) == control.id(); });
    return hit == rows_.end() ? nullptr : &*hit;
}

void SettingsPanel::loadFrom(const SettingSource& source, const RyvCfgDrawingSettings* usual) {
    for (const SettingRow& row : rows_)
        if (row.kind != ControlKind::button)
            loaded_[controlIdOf(row)] = source.value(row.key);
    load(RowBinding(*this, nullptr));
    for (const SettingRow& row : rows_) {
        showUsual(row, usual);
        explain(row);
    }
}

void SettingsPanel::storeTo(SettingSource& source) const {
    RowBinding binding(*this, &source);
    store(binding);
}

std::optional<CString> SettingsPanel::loaded(int id) const {
    const auto hit = loaded_.find(id);
    return hit == loaded_.end() ? std::nullopt : hit->second;
}

/// An empty field alone would not say what applies.
void SettingsPanel::showUsual(const SettingRow& row, const RyvCfgDrawingSettings* usual) {
    const bool isKnown = usual && row.key.area == SettingArea::drawing && !loaded(controlIdOf(row));
    CString text = isKnown ? valueOrEmpty(*usual, row.key.number) : CString();
    if (const ChoiceLayout* const choice = choiceOf(row, text))
        text = resolve(choice->text, messageText);
    if (text.empty() && row.unset != 0)
        text = messageText(row.unset);
    Control& shownRow = control<Control>(controlIdOf(row));
    if (auto* const field = dynamic_cast<TextField*>(&shownRow))
        field->setPlaceholder(std::move(text));
    else if (auto* const box = dynamic_cast<ComboBox*>(&shownRow))
        box->setPlaceholder(std::move(text));
}

void SettingsPanel::explain(const SettingRow& row) {
    if (row.kind == ControlKind::button)
        return;
    const int id = controlIdOf(row);
    const auto [known, isNew] = explanations_.try_emplace(id);
    if (isNew && row.key.area == SettingArea::drawing)
        known->second = settingExplanation(row.key.number);
    if (isNew && row.explanation != 0)
        addLine(known->second, row.explanation);
    CString text = known->second;
    if (!loaded(id) && (row.traits & LayoutTraits::readOnly) == 0)
        addLine(text, message::settingNotSet);
    control<Control>(id).setTooltip(std::move(text));
}

std::optional<CString> SettingsPanel::shown(const SettingCondition& what) const {
    for (const SettingRow& row : rows_)
        if (row.key == what.key && row.bit == what.bit && row.kind != ControlKind::button)
            return valueOf(control<Control>(controlIdOf(row)));
    return std::nullopt;
}

bool SettingsPanel::meets(const SettingCondition& condition) const {
    if (condition.key.area == SettingArea::none)
        return true;
    const std::optional<CString> value = group_ ? group_->shown(condition) : shown(condition);
    if (!value || value->empty())
        return true;
    const CStringArray values = split(condition.values, u',');
    return std::find(values.begin(), values.end(), *value) != values.end();
}

const CString& SettingsPanel::judgement(const SettingRow& row, const CString& value) {
    const auto [known, isNew] = judgements_.try_emplace(controlIdOf(row));
    if (isNew || known->second.value != value)
        known->second = {value, warningFor(row.rule, value)};
    return known->second.warning;
}

CString SettingsPanel::warningOf(const SettingRow& row, const Control& control) {
    if (!control.isEnabled() || row.kind == ControlKind::button)
        return {};
    const std::optional<CString> stored = loaded(control.id());
    const std::optional<CString> value = valueOf(control);
    if (showsChoicesOnly(control))
        return value || !stored || stored->empty() ? CString()
                                                   : format(messageText(message::warnUnknown), {*stored});
    if (!value || (value->empty() && !stored))
        return {};
    return judgement(row, *value);
}

void SettingsPanel::refresh() {
    for (const SettingRow& row : rows_) {
        Control& shownRow = control<Control>(controlIdOf(row));
        shownRow.setEnabled((row.traits & LayoutTraits::disabled) == 0 && meets(row.when));
        shownRow.setWarning(warningOf(row, shownRow));
    }
}

/// Another panel may hang on the value, too.
void SettingsPanel::onChange(Control&) {
    if (group_)
        group_->refresh();
}

void SettingsPanel::onPress(int id) {
    const SettingRow* const row = rowOf(control<Control>(id));
    if (group_ && row && row->action)
        group_->perform(row->action);
}

} // namespace ryv
