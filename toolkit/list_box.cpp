#include "toolkit/list_box.h"

#include <algorithm>
#include <utility>

namespace ryv {

void ListBox::setRows(Choices rows) {
    chosen_.assign(rows.size(), 0);
    rows_ = std::move(rows);
    notify();
}

void ListBox::insert(std::size_t index, Choice row) {
    if (index > rows_.size())
        throw std::invalid_argument("row outside the list");
    const auto offset = static_cast<std::ptrdiff_t>(index);
    rows_.insert(rows_.begin() + offset, std::move(row));
    chosen_.insert(chosen_.begin() + offset, 0);
    notify();
}

void ListBox::remove(std::size_t index) {
    static_cast<void>(rows_[index]);
    const auto offset = static_cast<std::ptrdiff_t>(index);
    rows_.erase(rows_.begin() + offset);
    chosen_.erase(chosen_.begin() + offset);
    notify();
}

void ListBox::exchange(std::size_t index, std::size_t other) {
    std::swap(rows_[index], rows_[other]);
    std::swap(chosen_[index], chosen_[other]);
    notify();
}

std::vector<std::size_t> ListBox::chosen() const {
    std::vector<std::size_t> indexes;
    for (std::size_t i = 0; i < chosen_.size(); ++i)
        if (chosen_[i])
            indexes.push_back(i);
    return indexes;
}

std::optional<std::size_t> ListBox::firstChosen() const {
    const auto first = std::find(chosen_.begin(), chosen_.end(), 1);
    if (first == chosen_.end())
        return std::nullopt;
    return static_cast<std::size_t>(first - chosen_.begin());
}

CArray<char> ListBox::marksOf(const std::vector<std::size_t>& indexes) const {
    CArray<char> marks(rows_.size(), 0);
    for (const std::size_t index : indexes) {
        if (!many_)
            std::fill(marks.begin(), marks.end(), char(0));
        marks[index] = 1;
    }
    return marks;
}

void ListBox::setChosen(const std::vector<std::size_t>& indexes) {
    set(chosen_, marksOf(indexes));
}

bool ListBox::choose(const std::vector<std::size_t>& indexes) {
    const bool canBeChosen = std::all_of(indexes.begin(), indexes.end(),
        [this](std::size_t index) { return index < rows_.size() && !rows_[index].separator; });
    if (!isUsable() || !canBeChosen || (!many_ && indexes.size() > 1))
        return false;
    edit(chosen_, marksOf(indexes));
    return true;
}

bool ListBox::activate(std::size_t index) {
    if (!choose({index}))
        return false;
    activated.fire(index);
    return true;
}

} // namespace ryv
