// Surrogates of UTF-16: in pairs they are characters, alone they are not.
#pragma once

#include "base/strings.h"

namespace kqp {

constexpr bool isSurrogate(char16_t unit) noexcept {
    return unit >= 0xD800 && unit <= 0xDFFF;
}

/// True when a high surrogate stands at `at` with its low one behind it.
constexpr bool isPairAt(ryv::CStringView text, std::size_t at) noexcept {
    return text[at] >= 0xD800 && text[at] <= 0xDBFF && at + 1 < text.size() && text[at + 1] >= 0xDC00 &&
           text[at + 1] <= 0xDFFF;
}

} // namespace kqp
