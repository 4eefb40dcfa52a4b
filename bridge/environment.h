// What the package's LISP code knows of its installation: environment values and localised texts.
#pragma once

#include "base/strings.h"

namespace ryv {

/// An environment value of the package, by name. False, with `value` left alone, when LISP gives no string.
bool readEnvironment(CStringView name, CString& value);

/// The same by code: 1 "KQ_LIB", 2 "KQ_MENU", 3 "KQ_PNL", 4 "KQ_PMENU". Any other code is false without a
/// call.
bool readEnvironment(int code, CString& value);

/// The localised text of a message such as "CFG037", or `defaultText` when LISP gives none.
CString lispMessage(CStringView id, CStringView defaultText);

} // namespace ryv
