// Variables in the texts of task dialogs. Who serves the TaskDialogs port fills in their values.
#pragma once

#include "base/strings.h"

#include <utility>
#include <vector>

namespace ryv {

/// The text with each "{Name}" replaced by the value of that name; of several values of one name the last
/// counts. A name without a value stays as it stands. Case counts; values are not searched for names.
CString fillVariables(CStringView text, const std::vector<std::pair<CString, CString>>& values);

} // namespace ryv
