#include "siblings/token.h"

#include "base/text.h"

namespace ryv {

bool GetToken(CString& text, CString& token, char16_t delimiter) {
    const std::size_t end = text.find(delimiter);
    if (end == CString::npos)
        return false;
    token = trim(CStringView(text).substr(0, end));
    text.erase(0, end + 1);
    return true;
}

CStringArray listItems(CStringView text, char16_t delimiter) {
    CStringArray items;
    if (text.empty())
        return items;
    for (const CString& part : split(text, delimiter))
        items.emplace_back(trim(part));
    return items;
}

} // namespace ryv
