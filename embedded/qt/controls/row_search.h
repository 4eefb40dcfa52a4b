// A field above a list or grid of many rows, which shows those alone that hold what is typed.
#pragma once

#include "toolkit/control.h"

class QWidget;

namespace drafta {

/// For the view of a list, or of a grid whose dialog does not search it; null for other controls. The field
/// is there while the list is long. It changes what is shown, and nothing else: rows that are hidden stay
/// chosen. Escape empties it, Down goes to the rows, and Control and F in the rows goes to the field.
QWidget* makeRowSearch(const ryv::Control& control, QWidget& view, QWidget* parent);

} // namespace drafta
