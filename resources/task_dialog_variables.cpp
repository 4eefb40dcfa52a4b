#include "resources/task_dialog_variables.h"

#include <algorithm>

namespace ryv {

namespace {

/// The value that counts, or null.
const CString* valueOf(CStringView name, const std::vector<std::pair<CString, CString>>& values) {
    const auto hit =
        std::find_if(values.rbegin(), values.rend(), [name](const auto& each) { return each.first == name; });
    return hit == values.rend() ? nullptr : &hit->second;
}

} // namespace

CString fillVariables(CStringView text, const std::vector<std::pair<CString, CString>>& values) {
    CString filled;
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t end = text[i] == u'{' ? text.find(u'}', i) : CStringView::npos;
        const CString* const value =
            end == CStringView::npos ? nullptr : valueOf(text.substr(i + 1, end - i - 1), values);
        if (value)
            filled += *value;
        else
            filled += text[i];
        i = value ? end + 1 : i + 1;
    }
    return filled;
}

} // namespace ryv
