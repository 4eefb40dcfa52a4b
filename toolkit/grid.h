// Rows and columns of texts, to be compared and chosen from; the user does not edit them.
#pragma once

#include "toolkit/single_choice.h"

namespace ryv {

/// Rows and columns are counted from 0. An index outside throws where the program gives it, and is refused
/// where the user does.
class Grid : public SingleChoice {
public:
    explicit Grid(int id) noexcept : SingleChoice(ControlKind::grid, id) {}

    const CStringArray& columns() const noexcept { return columns_; }
    /// Takes the rows away.
    void setColumns(CStringArray titles);

    std::size_t rowCount() const noexcept { return rows_.size(); }
    /// A row with too few texts has empty ones behind them, and what is too much is left out.
    void addRow(CStringArray texts);
    void clear();

    const CString& text(std::size_t row, std::size_t column) const { return rows_[row].texts[column]; }
    void setText(std::size_t row, std::size_t column, CString text);

    /// A marked row catches the eye.
    bool isMarked(std::size_t row) const { return rows_[row].marked; }
    void setMarked(std::size_t row, bool marked) { set(rows_[row].marked, marked); }

    /// What is shown while there are no rows; empty for nothing.
    const CString& placeholder() const noexcept { return placeholder_; }
    void setPlaceholder(CString text) { set(placeholder_, std::move(text)); }

    /// Whether the dialog has a field of its own to search the rows with, so that views need none.
    bool isSearchedByDialog() const noexcept { return searchedByDialog_; }
    void setSearchedByDialog(bool searched) { set(searchedByDialog_, searched); }

protected:
    std::size_t choiceCount() const noexcept override { return rows_.size(); }

private:
    struct Row {
        CStringArray texts;
        bool marked = false;
    };
    CStringArray columns_;
    CArray<Row> rows_;
    CString placeholder_;
    bool searchedByDialog_ = false;
};

} // namespace ryv
