// What lists, combo boxes and radio buttons choose from.
#pragma once

#include "base/strings.h"

#include <cstddef>
#include <optional>

namespace ryv {

/// One of the choices.
struct Choice {
    CString text;           ///< shown
    CString value = {};     ///< stands for it in what is stored; empty: the text does
    std::size_t data = 0;   ///< the program's own: an index, a code
    int image = 0;          ///< number of an image (toolkit/images.h); 0 for none
    bool separator = false; ///< a line between others, which cannot be chosen
    bool marked = false;    ///< stands out among the others: the active one

    const CString& storedValue() const noexcept { return value.empty() ? text : value; }
    bool operator==(const Choice&) const = default;
};

/// A line between choices.
inline Choice separatorChoice() {
    Choice line;
    line.separator = true;
    return line;
}

using Choices = CArray<Choice>;

/// The first choice of that text, of that stored value. Case counts. Separators are none.
std::optional<std::size_t> findChoice(const Choices& choices, CStringView text) noexcept;
std::optional<std::size_t> findStoredValue(const Choices& choices, CStringView value) noexcept;

} // namespace ryv
