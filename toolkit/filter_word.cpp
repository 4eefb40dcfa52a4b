#include "toolkit/filter_word.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace ryv {

namespace {

enum class Sort { other, letter, digit, zero };

Sort sortOf(char16_t unit) noexcept {
    if (unit == u'0')
        return Sort::zero;
    if (unit >= u'1' && unit <= u'9')
        return Sort::digit;
    return (unit >= u'A' && unit <= u'Z') || unit > 0x7F ? Sort::letter : Sort::other;
}

bool isDigit(Sort sort) noexcept {
    return sort == Sort::digit || sort == Sort::zero;
}

} // namespace

FilterWord::FilterWord(CString upper) : word_(std::move(upper)) {
    std::copy_if(word_.begin(), word_.end(), std::back_inserter(letters_),
        [](char16_t unit) { return sortOf(unit) != Sort::other; });
    if (letters_.size() < 2 || letters_.size() > longest)
        letters_.clear();
    for (std::size_t i = 0; i < letters_.size(); ++i)
        if (letters_[i] < plain_.size())
            plain_[letters_[i]] |= Marks{2} << i;
    all_ = Marks{1} << letters_.size();
    oneOnly_ = letters_.size() == 2;
}

bool FilterWord::matches(CStringView lines) const noexcept {
    return lines.find(word_) != CStringView::npos || (!letters_.empty() && matchesLoosely(lines));
}

/// With how many letters found the unit may be the last of them.
FilterWord::Marks FilterWord::marksOf(char16_t unit) const noexcept {
    if (unit < plain_.size())
        return plain_[unit];
    Marks marks = 0;
    for (std::size_t i = 0; i < letters_.size(); ++i)
        if (letters_[i] == unit)
            marks |= Marks{2} << i;
    return marks;
}

/// One pass: for each place, with how many letters found it may be where the last of them stands.
bool FilterWord::matchesLoosely(CStringView lines) const noexcept {
    Marks before[3] = {}; // at the last three places of this piece, the nearest first
    Marks piece = 0;      // anywhere in this piece
    Marks lastPiece = 0;
    Marks beside = 0; // at the place just before, in whatever piece
    Sort last = Sort::other;
    bool onlyZeros = false;
    for (const char16_t unit : lines) {
        const Sort sort = sortOf(unit);
        const bool begins = sort != Sort::other && (last == Sort::other || isDigit(sort) != isDigit(last));
        if (begins || sort == Sort::other) {
            if (last != Sort::other)
                lastPiece = std::exchange(piece, 0);
            std::fill(std::begin(before), std::end(before), Marks{0});
        }
        if (unit == u'\n')
            lastPiece = piece = beside = 0;
        Marks from = beside | before[1] | (oneOnly_ ? 0 : before[2]);
        if (isDigit(sort))
            from = beside;
        const bool first = begins || (onlyZeros && isDigit(sort));
        if (first)
            from |= lastPiece | 1;
        const Marks found = sort == Sort::other ? 0 : (from << 1) & marksOf(unit);
        if (found & all_)
            return true;
        onlyZeros = first && sort == Sort::zero;
        piece |= found;
        before[2] = before[1];
        before[1] = before[0];
        before[0] = beside = found;
        last = sort;
    }
    return false;
}

} // namespace ryv
