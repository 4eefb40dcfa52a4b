// Questions of the package's catalogue of task dialogs.
#pragma once

#include "base/strings.h"

#include <utility>
#include <vector>

namespace ryv {

/// Shows a dialog of the catalogue with values for its texts; the number of the button that was chosen, that
/// of Cancel also when there is no such dialog. Anything may have changed when it returns.
int askTask(CStringView id, const std::vector<std::pair<CString, CString>>& variables = {});

} // namespace ryv
