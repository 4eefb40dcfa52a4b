#include "toolkit/plain_text.h"

#include "base/text.h"

#include <algorithm>

namespace ryv {

namespace {
bool isControl(char16_t unit) noexcept {
    return unit < 0x20 || (unit >= 0x7F && unit < 0xA0);
}
} // namespace

CString withoutMarks(CStringView label) {
    CString text;
    for (std::size_t i = 0; i < label.size(); ++i) {
        if (label[i] == u'&' && ++i == label.size())
            break;
        text += label[i];
    }
    return text;
}

CString asLabel(CStringView text) {
    return replaceAll(text, u"&", u"&&");
}

CString onOneLine(CStringView text) {
    CString line(text);
    std::replace_if(line.begin(), line.end(), isControl, u' ');
    return line;
}

CString onLines(CStringView text) {
    CString lines(text);
    std::replace_if(
        lines.begin(), lines.end(), [](char16_t unit) { return unit != u'\n' && isControl(unit); }, u' ');
    return lines;
}

} // namespace ryv
