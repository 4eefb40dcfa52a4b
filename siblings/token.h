// Taking a delimited list apart, one item after another.
#pragma once

#include "base/strings.h"

namespace ryv {

/// Takes the item in front of the first `delimiter` out of `text`, together with the delimiter, and stores it
/// in `token` without white space at its ends. False, with `text` and `token` left alone, when `text` has no
/// delimiter: what remains in `text` is then the last item.
bool GetToken(CString& text, CString& token, char16_t delimiter);

/// All items of a list, the last one included, each without white space at its ends; an empty text has none.
CStringArray listItems(CStringView text, char16_t delimiter);

} // namespace ryv
