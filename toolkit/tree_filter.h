// Which rows match what the user looks for.
#pragma once

#include "toolkit/filter_word.h"

#include <vector>

namespace ryv {

/// Words, parted by blanks, that all have to match, without regard to case; see FilterWord. Without a word
/// everything matches.
class TreeFilter {
public:
    TreeFilter() = default;
    explicit TreeFilter(CString text);

    bool isActive() const noexcept { return !words_.empty(); }
    const CString& text() const noexcept { return text_; }

    /// `lines`: what a row can be found by, parted by "\n". Each word may match in another line.
    bool matches(CStringView lines) const;

private:
    CString text_;
    std::vector<FilterWord> words_;
    mutable CString upper_; // keeps its memory from row to row
};

} // namespace ryv
