// A button: pressed, and that is all. Its label stands on it, or its name says which image does.
#pragma once

#include "toolkit/control.h"

namespace ryv {

class Button : public Control {
public:
    explicit Button(int id) noexcept : Control(ControlKind::button, id) {}

    /// The user has pressed it. False, and nobody hears of it, when it cannot be used. A handler may destroy
    /// the button.
    bool press() {
        if (!isUsable())
            return false;
        pressed.fire(*this);
        return true;
    }

    /// Whether pressing it opens a menu, which views mark with an arrow.
    bool isDropDown() const noexcept { return dropDown_; }
    void setDropDown(bool dropDown) { set(dropDown_, dropDown); }

    Event<Button&> pressed;

private:
    bool dropDown_ = false;
};

} // namespace ryv
