#include "model/drawing_pool.h"

#include "base/text.h"

#include <algorithm>

namespace ryv {

CStringView DescriptionLines::operator[](std::size_t index) const {
    if (index >= count_)
        throw std::invalid_argument("index outside the description lines");
    return first_[index].of(text_);
}

bool DescriptionLines::operator==(const DescriptionLines& other) const noexcept {
    return count_ == other.count_ && std::equal(begin(), end(), other.begin(), sameText);
}

std::uint32_t DrawingPool::add() {
    records_.emplace_back().firstLine = static_cast<std::uint32_t>(lines_.size());
    return static_cast<std::uint32_t>(records_.size() - 1);
}

void DrawingPool::setFileName(CStringView name) {
    last().fileName = {static_cast<std::uint32_t>(names_.size()), static_cast<std::uint32_t>(name.size())};
    names_ += name;
}

void DrawingPool::reserve(std::size_t lines, std::size_t records) {
    lines_.reserve(lines);
    records_.reserve(records);
}

DescriptionLines DrawingPool::descriptions(std::uint32_t number) const noexcept {
    const Record& record = records_[number];
    return {*text_, lines_.data() + record.firstLine, record.lineCount};
}

void DrawingPool::trim() {
    names_.shrink_to_fit();
    lines_.shrink_to_fit();
    records_.shrink_to_fit();
}

} // namespace ryv
