// A list of rows, of which one or several are chosen.
#pragma once

#include "toolkit/choice.h"
#include "toolkit/control.h"

#include <vector>

namespace ryv {

/// Rows are addressed by index, from 0; an index outside the list throws where the program gives it, and is
/// refused where the user does.
class ListBox : public Control {
public:
    explicit ListBox(int id, bool many = false) noexcept : Control(ControlKind::list, id), many_(many) {}

    /// Whether several rows may be chosen at a time.
    bool choosesMany() const noexcept { return many_; }

    const Choices& rows() const noexcept { return rows_; }
    /// None of the new rows is chosen.
    void setRows(Choices rows);

    /// Puts a row in front of another, or behind the last one. Chosen rows stay chosen. Every row behind it
    /// is moved: many rows at a time go in with setRows().
    void insert(std::size_t index, Choice row);
    void add(Choice row) { insert(rows_.size(), std::move(row)); }
    void remove(std::size_t index);
    /// The row changes places with another one and takes its being chosen along.
    void exchange(std::size_t index, std::size_t other);

    bool isChosen(std::size_t index) const { return chosen_[index]; }
    /// The chosen rows from the top.
    std::vector<std::size_t> chosen() const;
    /// The topmost chosen row.
    std::optional<std::size_t> firstChosen() const;
    /// Chooses these and no others; of a list that has one choice, the last counts.
    void setChosen(const std::vector<std::size_t>& indexes);

    /// The user has chosen these and no others. False, with nothing changed, when the list cannot be used, or
    /// one of them is not there or a separator, or they are too many.
    bool choose(const std::vector<std::size_t>& indexes);

    /// The user has double-clicked a row, which is chosen by that. False as for choose(). The list is needed
    /// from choosing to activating: no handler of `changed` or `edited` destroys it then, one of `activated`
    /// may.
    bool activate(std::size_t index);
    Event<std::size_t> activated;

private:
    CArray<char> marksOf(const std::vector<std::size_t>& indexes) const;

    Choices rows_;
    CArray<char> chosen_; // one for each row
    bool many_;
};

} // namespace ryv
