// Saying in a message box why work cannot begin.
#pragma once

#include "manager/file_locks.h"

namespace ryv {

/// Who is in the way of a lock, or what is missing. Anything may have changed when it returns.
void tellRefusal(const FileLocks& locks);

/// A drawing cannot be read as one; `problem` names file and reason.
void tellNotRead(const CString& problem);

} // namespace ryv
