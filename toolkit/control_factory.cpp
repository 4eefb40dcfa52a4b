#include "toolkit/control_factory.h"

#include "toolkit/button.h"
#include "toolkit/check_box.h"
#include "toolkit/combo_box.h"
#include "toolkit/grid.h"
#include "toolkit/label.h"
#include "toolkit/list_box.h"
#include "toolkit/picture.h"
#include "toolkit/radio_group.h"
#include "toolkit/text_field.h"

namespace ryv {

namespace {

bool has(const ControlLayout& layout, unsigned trait) {
    return (layout.traits & trait) != 0;
}

Choices choicesOf(const ControlLayout& layout, TextSource texts) {
    Choices choices;
    for (const ChoiceLayout& choice : layout.choices)
        choices.push_back({resolve(choice.text, texts), CString(choice.value)});
    return choices;
}

std::unique_ptr<Control> makeText(const ControlLayout& layout) {
    auto field = std::make_unique<TextField>(layout.id);
    field->setMultiLine(has(layout, LayoutTraits::multiLine));
    field->setReadOnly(has(layout, LayoutTraits::readOnly));
    field->setMaxLength(layout.maxLength);
    return field;
}

std::unique_ptr<Control> makeRadio(const ControlLayout& layout, TextSource texts) {
    auto group = std::make_unique<RadioGroup>(layout.id);
    group->setChoices(choicesOf(layout, texts));
    return group;
}

std::unique_ptr<Control> makeList(const ControlLayout& layout, TextSource texts) {
    auto list = std::make_unique<ListBox>(layout.id, has(layout, LayoutTraits::many));
    list->setRows(choicesOf(layout, texts));
    return list;
}

std::unique_ptr<Control> makeCombo(const ControlLayout& layout, TextSource texts) {
    auto box = std::make_unique<ComboBox>(layout.id, has(layout, LayoutTraits::editable));
    box->setRows(choicesOf(layout, texts));
    box->setMaxLength(layout.maxLength);
    return box;
}

std::unique_ptr<Control> makeGrid(const ControlLayout& layout, TextSource texts) {
    auto grid = std::make_unique<Grid>(layout.id);
    CStringArray titles;
    for (const ChoiceLayout& column : layout.choices)
        titles.push_back(resolve(column.text, texts));
    grid->setColumns(std::move(titles));
    return grid;
}

std::unique_ptr<Control> makeOfKind(const ControlLayout& layout, TextSource texts) {
    switch (layout.kind) {
    case ControlKind::label:
        return std::make_unique<Label>(layout.id);
    case ControlKind::text:
        return makeText(layout);
    case ControlKind::button:
        return std::make_unique<Button>(layout.id);
    case ControlKind::checkBox:
        return std::make_unique<CheckBox>(layout.id);
    case ControlKind::radio:
        return makeRadio(layout, texts);
    case ControlKind::list:
        return makeList(layout, texts);
    case ControlKind::combo:
        return makeCombo(layout, texts);
    case ControlKind::grid:
        return makeGrid(layout, texts);
    case ControlKind::picture:
        return std::make_unique<Picture>(layout.id);
    case ControlKind::tree:
    case ControlKind::group:
    case ControlKind::page:
    case ControlKind::notice:
        break;
    }
    throw std::invalid_argument("layouts do not describe this kind of control");
}

} // namespace

std::unique_ptr<Control> makeControl(const ControlLayout& layout, TextSource texts) {
    std::unique_ptr<Control> control = makeOfKind(layout, texts);
    control->setName(CString(layout.name));
    control->setLabel(resolve(layout.label, texts));
    control->setEnabled(!has(layout, LayoutTraits::disabled));
    control->setVisible(!has(layout, LayoutTraits::hidden));
    return control;
}

} // namespace ryv
