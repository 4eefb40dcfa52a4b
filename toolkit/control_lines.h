// The lines that stand for one control in a text.
#pragma once

#include "toolkit/control.h"
#include "toolkit/label_text.h"

namespace ryv {

/// Nothing for a hidden control. `labelWidth` is the room that the label of a field gets, at least.
TextLines linesOf(const Control& control, const RenderOptions& options, std::size_t labelWidth = 0);

/// The room that the label of a field takes up; 0 for controls whose label does not stand in front.
std::size_t labelWidthOf(const Control& control);

/// A button as it stands between others.
CString buttonText(const Control& button, bool isDefault, const RenderOptions& options);

} // namespace ryv
