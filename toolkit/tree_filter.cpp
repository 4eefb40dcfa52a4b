#include "toolkit/tree_filter.h"

#include "base/fold.h"

namespace ryv {

TreeFilter::TreeFilter(CString text) : text_(std::move(text)), upper_(toUpper(CStringView(text_))) {}

bool TreeFilter::matches(CStringView label) const noexcept {
    const std::size_t length = upper_.size();
    if (length == 0)
        return true;
    for (std::size_t start = 0; start + length <= label.size(); ++start)
        if (toUpper(label[start]) == upper_[0] && equalNoCase(label.substr(start, length), upper_))
            return true;
    return false;
}

} // namespace ryv
