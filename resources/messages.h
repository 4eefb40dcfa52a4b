// The texts that the user meets in message boxes, titles and labels, by number (resources/message_numbers.h).
#pragma once

#include "resources/language.h"

namespace ryv {

/// The text of a number in the user's language; empty for one that has none. Some hold placeholders for
/// format() (base/format.h); what goes into them stands beside the number.
CStringView messageText(int number) noexcept;

/// The same in a language of the caller's choice, for names under which something was kept.
CStringView messageText(int number, Language language) noexcept;

} // namespace ryv
