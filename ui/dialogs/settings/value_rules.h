// What is doubtful about the text of a setting. Records take any text, and so do the panels: a rule only
// warns.
#pragma once

#include "base/strings.h"

#include <array>
#include <optional>

namespace ryv {

enum class ValueRule {
    any,
    notEmpty,
    number,       ///< empty, or a decimal number
    positive,     ///< a number above 0
    wholeNumber,  ///< digits
    numberFormat, ///< holds %N, without which one number or tag is like the next
    threeNumbers, ///< with commas
    wholeNumbers, ///< one or more, with commas
    layer,        ///< a layer name
    layers,       ///< layer names or patterns, with commas
    folders,      ///< empty, or folders that are there, with ";"
    file          ///< empty, or a file that is there
};

/// A text for the user; empty when there is nothing to say. A number with a comma for its point is told so.
CString warningFor(ValueRule rule, CStringView value);

/// The decimal number that is the whole of a text, blanks around it aside: "-0.5", "2", "1e3".
std::optional<double> decimalNumber(CStringView text) noexcept;

/// Three of them with commas between.
std::optional<std::array<double, 3>> threeNumbers(CStringView text);

} // namespace ryv
