// The texts that the user meets in message boxes and labels, by number.
#pragma once

#include "base/strings.h"

namespace ryv {

/// The text of a number; empty for one that has none. Some hold placeholders for format() (base/format.h).
CStringView messageText(int number) noexcept;

} // namespace ryv
