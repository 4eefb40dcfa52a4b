// Texts of controls and menus as people read them.
#pragma once

#include "base/strings.h"

namespace ryv {

/// A label without its marks: "&Open" is "Open", "A && B" is "A & B".
CString withoutMarks(CStringView label);

/// A text that may hold "&" of its own as a label that shows it.
CString asLabel(CStringView text);

/// One line without anything that a terminal would act upon: control characters become blanks.
CString onOneLine(CStringView text);

/// The same for a text that may have several lines: line feeds stay.
CString onLines(CStringView text);

} // namespace ryv
