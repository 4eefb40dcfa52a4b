#include "toolkit/script_text.h"

#include "base/text.h"

namespace ryv {

CStringArray splitUnquoted(CStringView text, char16_t separator) {
    CStringArray parts;
    std::size_t start = 0;
    bool quoted = false;
    for (std::size_t i = 0; i <= text.size(); ++i) {
        if (i < text.size() && text[i] == u'"')
            quoted = !quoted;
        if (i == text.size() || (text[i] == separator && !quoted)) {
            parts.emplace_back(trim(text.substr(start, i - start)));
            start = i + 1;
        }
    }
    return parts;
}

CString unquoted(CStringView text) {
    if (text.size() < 2 || text.front() != u'"' || text.back() != u'"')
        return CString(text);
    return replaceAll(text.substr(1, text.size() - 2), u"\"\"", u"\"");
}

} // namespace ryv
