#include "toolkit/combo_box.h"

namespace ryv {

void ComboBox::setRows(Choices rows) {
    rows_ = std::move(rows);
    state_ = editable_ ? stateOf(CStringView(state_.text)) : State();
    notify();
}

void ComboBox::add(Choice row) {
    rows_.push_back(std::move(row));
    notify();
}

ComboBox::State ComboBox::stateOf(CStringView text) const {
    const std::optional<std::size_t> row = findChoice(rows_, text);
    if (!row && !editable_)
        return {};
    return {CString(text), row};
}

ComboBox::State ComboBox::stateOf(std::optional<std::size_t> index) const {
    if (!index)
        return {};
    return {rows_[*index].text, index};
}

void ComboBox::setChosen(std::optional<std::size_t> index) {
    set(state_, stateOf(index));
}

void ComboBox::setText(CStringView text) {
    set(state_, stateOf(text));
}

bool ComboBox::choose(std::size_t index) {
    if (!isUsable() || index >= rows_.size() || rows_[index].separator)
        return false;
    set(state_, stateOf(std::optional(index)));
    edited.fire(*this);
    return true;
}

bool ComboBox::type(CStringView text) {
    const bool fits = maxLength_ == 0 || text.size() <= maxLength_;
    if (!isUsable() || !editable_ || !fits || text.find(u'\n') != CStringView::npos)
        return false;
    edit(state_, stateOf(text));
    return true;
}

} // namespace ryv
