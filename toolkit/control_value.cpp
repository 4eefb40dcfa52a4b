#include "toolkit/control_value.h"

#include "toolkit/check_box.h"
#include "toolkit/combo_box.h"
#include "toolkit/list_box.h"
#include "toolkit/radio_group.h"
#include "toolkit/text_field.h"

namespace ryv {

namespace {

constexpr CStringView on = u"1";
constexpr CStringView off = u"0";

std::optional<CString> stored(const Choices& choices, std::optional<std::size_t> chosen) {
    if (!chosen)
        return std::nullopt;
    return choices[*chosen].storedValue();
}

std::optional<CString> comboValue(const ComboBox& box) {
    if (box.isEditable() && !box.chosen())
        return box.text();
    return stored(box.rows(), box.chosen());
}

void setComboValue(ComboBox& box, CStringView value) {
    const std::optional<std::size_t> row = findStoredValue(box.rows(), value);
    if (row || !box.isEditable())
        box.setChosen(row);
    else
        box.setText(value);
}

void setListValue(ListBox& list, CStringView value) {
    const std::optional<std::size_t> row = findStoredValue(list.rows(), value);
    list.setChosen(row ? std::vector{*row} : std::vector<std::size_t>());
}

} // namespace

std::optional<CString> valueOf(const Control& control) {
    if (const auto* field = dynamic_cast<const TextField*>(&control))
        return field->text();
    if (const auto* box = dynamic_cast<const CheckBox*>(&control))
        return CString(box->isChecked() ? on : off);
    if (const auto* group = dynamic_cast<const RadioGroup*>(&control))
        return stored(group->choices(), group->chosen());
    if (const auto* combo = dynamic_cast<const ComboBox*>(&control))
        return comboValue(*combo);
    if (const auto* list = dynamic_cast<const ListBox*>(&control); list && !list->choosesMany())
        return stored(list->rows(), list->firstChosen());
    return std::nullopt;
}

void setValue(Control& control, CStringView value) {
    if (auto* field = dynamic_cast<TextField*>(&control))
        field->setText(CString(value));
    else if (auto* box = dynamic_cast<CheckBox*>(&control))
        box->setChecked(value == on);
    else if (auto* group = dynamic_cast<RadioGroup*>(&control))
        group->setChosen(findStoredValue(group->choices(), value));
    else if (auto* combo = dynamic_cast<ComboBox*>(&control))
        setComboValue(*combo, value);
    else if (auto* list = dynamic_cast<ListBox*>(&control); list && !list->choosesMany())
        setListValue(*list, value);
}

bool showsValue(const Control& control, CStringView stored) {
    if (const auto* box = dynamic_cast<const CheckBox*>(&control))
        return box->isChecked() == (stored == on);
    const std::optional<CString> value = valueOf(control);
    return value && *value == stored;
}

} // namespace ryv
