// The descriptions of the drawing settings, by message key: what is shown where the package's own message
// files have no text for it.
#pragma once

#include "base/strings.h"

namespace ryv {

/// The description of a key such as "CFG037" in the user's language; empty for an unknown key.
CStringView settingText(CStringView key) noexcept;

} // namespace ryv
