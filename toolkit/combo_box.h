// One row of a list that drops down; where it is editable, a text of the user's own instead.
#pragma once

#include "toolkit/choice.h"
#include "toolkit/control.h"

namespace ryv {

/// Rows are addressed by index, from 0; an index outside the list throws where the program gives it, and is
/// refused where the user does.
class ComboBox : public Control {
public:
    explicit ComboBox(int id, bool editable = false) noexcept
        : Control(ControlKind::combo, id), editable_(editable) {}

    bool isEditable() const noexcept { return editable_; }

    const Choices& rows() const noexcept { return rows_; }
    /// The text of an editable box stays, that of another one is empty afterwards.
    void setRows(Choices rows);
    void add(Choice row);

    /// What the box shows while it is closed.
    const CString& text() const noexcept { return state_.text; }
    /// The chosen row; in an editable box the first one that has its text.
    std::optional<std::size_t> chosen() const noexcept { return state_.chosen; }

    void setChosen(std::optional<std::size_t> index);
    /// A text that is on no row is only for an editable box; in another one it chooses nothing.
    void setText(CStringView text);

    /// What a box without a text stands for, shown in it and no part of its text.
    const CString& placeholder() const noexcept { return placeholder_; }
    void setPlaceholder(CString text) { set(placeholder_, std::move(text)); }

    /// Rows that do something at once: nobody is to choose one in passing, so keys and wheel open the list.
    bool isMenu() const noexcept { return menu_; }
    void setMenu(bool menu) { set(menu_, menu); }

    /// The longest text that the user may type, in UTF-16 units; 0 for any length. Rows may be longer.
    std::size_t maxLength() const noexcept { return maxLength_; }
    void setMaxLength(std::size_t units) { set(maxLength_, units); }

    /// The user has chosen a row. False, with nothing changed, when the box cannot be used, or the row is not
    /// there or a separator. Choosing the chosen row again is told too: rows may be commands.
    bool choose(std::size_t index);

    /// The user has typed. False, with nothing changed, when the box cannot be used or is not editable, or
    /// the text is too long or has several lines.
    bool type(CStringView text);

private:
    struct State {
        CString text;
        std::optional<std::size_t> chosen;
        bool operator==(const State&) const = default;
    };
    State stateOf(CStringView text) const;
    State stateOf(std::optional<std::size_t> index) const;

    Choices rows_;
    State state_;
    CString placeholder_;
    std::size_t maxLength_ = 0;
    bool editable_;
    bool menu_ = false;
};

} // namespace ryv
