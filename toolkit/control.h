// What all controls have in common. A control is a model: what it holds, what is selected, whether it can be
// used. It knows no fonts and no pixels; a view draws it and hands on what the user does.
#pragma once

#include "base/event.h"
#include "base/strings.h"

#include <cstdint>

namespace ryv {

/// What a control is, so that views and scripts can tell without looking at its class.
enum class ControlKind {
    label,    ///< text that is only shown
    text,     ///< a text that the user edits, one line or many
    button,   ///< pressed, and that is all
    checkBox, ///< on or off
    radio,    ///< one of several choices, all of them shown
    list,     ///< rows, of which one or several are chosen
    combo,    ///< one of a list, or text of the user's own
    grid,     ///< rows and columns of texts
    tree,     ///< rows that hold rows
    group,    ///< a stack of pages, of which one is shown
    picture,  ///< what a drawing looks like
    page,     ///< a row of buttons above another control
    notice    ///< a line that tells something
};

/// Main thread only. A control tells its views of every change that is not their own business.
class Control {
public:
    Control(ControlKind kind, int id) noexcept : kind_(kind), id_(id) {}
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;
    virtual ~Control() = default;

    ControlKind kind() const noexcept { return kind_; }

    /// By which dialogs, scripts and tests find it; unique among the controls of one dialog.
    int id() const noexcept { return id_; }

    /// By which scripts and themes know it, where that is not the number: "folder", "NEWPROJ". May be empty.
    const CString& name() const noexcept { return name_; }
    void setName(CString name) { name_ = std::move(name); }

    /// What stands beside it or on it; "&" marks the letter behind it, "&&" is one "&".
    const CString& label() const noexcept { return label_; }
    void setLabel(CString text) { set(label_, std::move(text)); }

    /// A control that is disabled is shown, and does not answer the user.
    bool isEnabled() const noexcept { return enabled_; }
    void setEnabled(bool enabled) { set(enabled_, enabled); }

    bool isVisible() const noexcept { return visible_; }
    void setVisible(bool visible) { set(visible_, visible); }

    /// Whether the user can do anything with it.
    bool isUsable() const noexcept { return enabled_ && visible_; }

    /// Shown while the pointer rests on the control; empty for none.
    const CString& tooltip() const noexcept { return tooltip_; }
    void setTooltip(CString text) { set(tooltip_, std::move(text)); }

    /// What is doubtful about the value, shown beside the control; empty for nothing. It forbids nothing.
    const CString& warning() const noexcept { return warning_; }
    void setWarning(CString text) { set(warning_, std::move(text)); }

    /// Something that a view shows is different now.
    Event<const Control&> changed;

    /// The user has given it another value. What the program sets is not told here. A handler may destroy the
    /// control, but in the middle of a gesture that has more to tell (ListBox::activate).
    Event<Control&> edited;

protected:
    void notify() const { changed.fire(*this); }

    /// Takes on a value from the user. Where it is another one, views and then the program are told; the
    /// control may be gone when this returns.
    template <class T>
    void edit(T& field, T value) {
        if (field == value)
            return;
        set(field, std::move(value));
        edited.fire(*this);
    }

    /// Takes a value on and tells the views, when it is another one.
    template <class T>
    void set(T& field, T value) {
        if (field == value)
            return;
        field = std::move(value);
        notify();
    }

private:
    ControlKind kind_;
    int id_;
    CString name_;
    CString label_;
    CString tooltip_;
    CString warning_;
    bool enabled_ = true;
    bool visible_ = true;
};

} // namespace ryv
