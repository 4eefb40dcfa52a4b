// On or off.
#pragma once

#include "toolkit/control.h"

namespace ryv {

class CheckBox : public Control {
public:
    explicit CheckBox(int id) noexcept : Control(ControlKind::checkBox, id) {}

    bool isChecked() const noexcept { return checked_; }
    void setChecked(bool checked) { set(checked_, checked); }

    /// The user has turned it over. False when it cannot be used.
    bool click() {
        if (!isUsable())
            return false;
        edit(checked_, !checked_);
        return true;
    }

private:
    bool checked_ = false;
};

} // namespace ryv
