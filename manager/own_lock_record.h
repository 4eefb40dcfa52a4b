// The lock record of this process.
#pragma once

#include "base/strings.h"

#include <optional>

namespace ryv {

/// Who works here, where and now, as a lock file says it (siblings/lock_record.h); nothing when the system
/// does not know the user's or the computer's name.
std::optional<CString> makeOwnLockRecord();

} // namespace ryv
