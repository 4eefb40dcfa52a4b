// Text that is only shown: its label.
#pragma once

#include "toolkit/control.h"

namespace ryv {

class Label : public Control {
public:
    explicit Label(int id) noexcept : Control(ControlKind::label, id) {}
};

} // namespace ryv
