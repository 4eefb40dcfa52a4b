// Changing a drawing's entry in memory, for who writes the project in a step of its own.
#pragma once

#include "model/file_details.h"

namespace ryv {

/// Fires the event that comes before a change of a drawing's details, then changes them in the open project.
/// Does not write the project file; the caller does. False when the project is not open, or lists no such
/// drawing: a handler of the event may have closed it or read it again, so who has made `details` of what the
/// project said before watches for that.
bool changeDetailsInMemory(const RyvPrmFileDetails& details, const CString& projectId);

} // namespace ryv
