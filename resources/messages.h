// The texts that the user meets in message boxes, titles and labels, by number (resources/message_numbers.h).
#pragma once

#include "base/strings.h"

namespace ryv {

/// The text of a number; empty for one that has none. Some hold placeholders for format() (base/format.h);
/// what goes into them stands beside the number.
CStringView messageText(int number) noexcept;

} // namespace ryv
