#include "toolkit/grid.h"

namespace ryv {

void Grid::setColumns(CStringArray titles) {
    columns_ = std::move(titles);
    clear();
}

void Grid::addRow(CStringArray texts) {
    texts.resize(columns_.size());
    rows_.push_back({std::move(texts)});
    notify();
}

void Grid::clear() {
    rows_.clear();
    renewed();
}

void Grid::setText(std::size_t row, std::size_t column, CString text) {
    set(rows_[row].texts[column], std::move(text));
}

} // namespace ryv
