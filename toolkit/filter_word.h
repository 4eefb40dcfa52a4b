// One word of what the user looks for in rows of text.
#pragma once

#include "base/strings.h"

#include <array>
#include <cstdint>

namespace ryv {

/// A word matches a line that contains it. It also matches a line in which its letters and digits stand in
/// their order and close together; other signs of the word do not count for that. Close together means, with
/// a line seen as pieces of letters and pieces of digits (without leading zeros):
///
/// - the first one begins a piece,
/// - each one after that stands next to the one before, or is the first of the piece that follows, or comes
///   in the same piece with up to two letters between (one in a word of two); digits are never left out.
///
/// So "pmp" finds "Pump", "p1" finds "PANEL-01" and "mcc" finds "Motor control center", but "p1" does not
/// find "PANEL-21" nor "Pump in room 1".
class FilterWord {
public:
    /// `upper`: the word in upper case, without blanks.
    explicit FilterWord(CString upper);

    /// Whether it matches any of the lines of a text in upper case, parted by "\n".
    bool matches(CStringView lines) const noexcept;

private:
    using Marks = std::uint64_t; ///< a bit for each number of letters that have been found so far

    static constexpr std::size_t longest = 63; ///< letters of a word that is looked for in this way
    Marks marksOf(char16_t unit) const noexcept;
    bool matchesLoosely(CStringView lines) const noexcept;

    CString word_;
    CString letters_; ///< those that count for the loose match; empty when there is none
    std::array<Marks, 128> plain_{};
    Marks all_ = 0;
    bool oneOnly_ = false; ///< only one letter may be left out between two
};

} // namespace ryv
