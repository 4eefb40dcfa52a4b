// Makes the controls that layouts describe.
#pragma once

#include "toolkit/layout.h"

#include <memory>

namespace ryv {

/// The control of a layout, with what the layout says about it. Throws std::invalid_argument for a kind that
/// layouts do not describe.
std::unique_ptr<Control> makeControl(const ControlLayout& layout, TextSource texts);

} // namespace ryv
