// How settings of drawings are described to people.
#pragma once

#include "base/strings.h"

namespace ryv {

/// The package's localised description of a setting, or the built-in one; where there is none, its name in
/// the settings block. Empty outside 0..76.
CString settingDescription(int index);

/// The same with that name behind it.
CString settingExplanation(int index);

} // namespace ryv
