#include "toolkit/tree_filter.h"

#include "base/fold.h"

#include <algorithm>

namespace ryv {

TreeFilter::TreeFilter(CString text) : text_(std::move(text)) {
    const CString upper = toUpper(CStringView(text_));
    std::size_t start = 0;
    while ((start = upper.find_first_not_of(u' ', start)) != CString::npos) {
        const std::size_t end = std::min(upper.find(u' ', start), upper.size());
        words_.emplace_back(upper.substr(start, end - start));
        start = end;
    }
}

bool TreeFilter::matches(CStringView lines) const {
    if (words_.empty())
        return true;
    upper_.resize(lines.size());
    std::transform(lines.begin(), lines.end(), upper_.begin(), [](char16_t unit) { return toUpper(unit); });
    return std::all_of(
        words_.begin(), words_.end(), [this](const FilterWord& word) { return word.matches(upper_); });
}

} // namespace ryv
