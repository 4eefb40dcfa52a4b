// The host's own texts in the user's language. They are known by their English, which is what the code says.
#pragma once

#include "base/strings.h"

#include <span>

namespace drafta {

/// The text itself in English, and for one that has no other.
ryv::CStringView hostText(ryv::CStringView english) noexcept;

struct HostText {
    ryv::CStringView english;
    ryv::CStringView other;
};

/// All that are known in German, also some of the widget library, which has none where its own catalogue is
/// not installed.
std::span<const HostText> germanTexts() noexcept;

} // namespace drafta
