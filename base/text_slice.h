// A part of a long text, in half the room of a view.
#pragma once

#include "base/strings.h"

#include <cstdint>

namespace ryv {

/// Start and length in UTF-16 units. What is sliced is shorter than 4 Gi units; whoever makes slices sees to
/// that.
struct TextSlice {
    std::uint32_t start = 0;
    std::uint32_t length = 0;

    CStringView of(CStringView text) const noexcept { return {text.data() + start, length}; }
};

} // namespace ryv
