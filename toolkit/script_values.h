// Gives a control a value from a script, with the gestures that a user has.
#pragma once

#include "toolkit/control.h"

namespace ryv {

/// Empty when the control has taken the value, else why it did not, fit for the user. Of texts the value is
/// the text (of several lines, the lines between "|"), of check boxes "1" or "0". What has rows or pages
/// takes the text of one, without regard to case, or its number from 1; a list with several choices takes
/// them between
/// "|", and none for an empty value. A tree does the same with rows that are named by the labels down to
/// them, parted by "/". Parts may stand in double quotes.
CString giveValue(Control& control, CStringView value);

} // namespace ryv
