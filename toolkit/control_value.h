// The value of a control as text, so that records can be edited without a line of code for each field.
#pragma once

#include "toolkit/control.h"

#include <optional>

namespace ryv {

/// What the control holds: of a text or an editable combo box the text, of a check box "1" or "0", of radio
/// buttons, other combo boxes and lists with one choice the stored value of what is chosen. Nothing when
/// nothing is chosen, and for kinds that hold no value.
std::optional<CString> valueOf(const Control& control);

/// Puts a value in, as the program. A value that no choice has chooses none; a check box is on for "1" and
/// off for all others. Kinds that hold no value stay as they are.
void setValue(Control& control, CStringView value);

/// Whether a stored value is what the control shows, so that storing would only change its spelling.
bool showsValue(const Control& control, CStringView stored);

} // namespace ryv
