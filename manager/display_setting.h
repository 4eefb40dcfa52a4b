// How drawings are labelled in lists, kept for the user in the registry.
#pragma once

#include "base/strings.h"

namespace ryv {

/// Column codes in their order, the text between columns, and whether the selection is shown. What was never
/// written reads as one column, 103, "-" and true. False, with the outputs left alone, when the number of
/// columns cannot be read, or the host has no profile.
bool readDisplaySetting(CArray<int>& order, CString& separator, bool& showSelection);

/// False at the first value that the registry does not take, and when the host has no profile.
bool writeDisplaySetting(const CArray<int>& order, const CString& separator, bool showSelection);

} // namespace ryv
