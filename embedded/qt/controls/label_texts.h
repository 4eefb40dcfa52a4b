// Texts of models as widgets take them.
#pragma once

#include "toolkit/control.h"

#include <QString>

class QLabel;
class QWidget;

namespace drafta {

/// A text that is shown as it is, where "&" would mark a letter.
QString asWidgetLabel(ryv::CStringView plain);

/// A tooltip that is never taken for markup, and wraps.
QString asTooltip(ryv::CStringView plain);

/// The label as it is read out: no marks, no colon.
QString spokenLabel(const ryv::Control& control);

/// The label beside or above a field, with a colon: it follows the control and leads the keyboard to `field`.
/// Null when the control has no label.
QLabel* makeFieldLabel(ryv::Control& control, QWidget& field, QWidget* parent);

} // namespace drafta
