// A text that the user edits, on one line or on many.
#pragma once

#include "toolkit/control.h"

#include <cstddef>
#include <functional>

namespace ryv {

class TextField : public Control {
public:
    explicit TextField(int id) noexcept : Control(ControlKind::text, id) {}

    /// Lines are parted by "\n".
    const CString& text() const noexcept { return text_; }

    /// The program may put in what it likes; the rules below bind the user alone.
    void setText(CString text) { set(text_, std::move(text)); }

    /// What an empty field stands for, shown in it and no part of its text.
    const CString& placeholder() const noexcept { return placeholder_; }
    void setPlaceholder(CString text) { set(placeholder_, std::move(text)); }

    bool isMultiLine() const noexcept { return multiLine_; }
    void setMultiLine(bool multiLine) { set(multiLine_, multiLine); }

    /// Shown to be read and copied.
    bool isReadOnly() const noexcept { return readOnly_; }
    void setReadOnly(bool readOnly) { set(readOnly_, readOnly); }

    /// Holds a number or the like: views need not give it much room.
    bool isBrief() const noexcept { return brief_; }
    void setBrief(bool brief) { set(brief_, brief); }

    /// The longest text that the user may leave, in UTF-16 units; 0 for any length.
    std::size_t maxLength() const noexcept { return maxLength_; }
    void setMaxLength(std::size_t units) { set(maxLength_, units); }

    /// Says which texts the user may leave, beside those that are too long. Unset, all.
    void setRule(std::function<bool(CStringView)> rule) { rule_ = std::move(rule); }

    /// Whether the user could leave this text here: its length, its lines and the rule. Says nothing of
    /// whether the field can be edited now.
    bool accepts(CStringView text) const;

    /// The user has replaced the text. False, with nothing changed, when the field cannot be used, is
    /// read-only or does not accept the text.
    bool type(CString text);

private:
    CString text_;
    CString placeholder_;
    std::function<bool(CStringView)> rule_;
    std::size_t maxLength_ = 0;
    bool multiLine_ = false;
    bool readOnly_ = false;
    bool brief_ = false;
};

} // namespace ryv
