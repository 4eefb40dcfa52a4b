#include "toolkit/label_text.h"

#include "base/text.h"
#include "toolkit/plain_text.h"

namespace ryv {

CString labelOf(const Control& control) {
    return onOneLine(withoutMarks(control.label()));
}

CString leadOf(const Control& control, std::size_t width) {
    CString label = labelOf(control);
    if (label.empty())
        return {};
    if (label.back() != u':')
        label += u':';
    return padded(std::move(label), width) + u" ";
}

CString notesOf(const Control& control, const RenderOptions& options) {
    CString text = control.isEnabled() ? u"" : u" (disabled)";
    if (options.showsNames)
        text += u" {" + (control.name().empty() ? toText(control.id()) : onOneLine(control.name())) + u"}";
    if (!control.warning().empty())
        text += u" (! " + onOneLine(control.warning()) + u")";
    return text;
}

TextLines headed(const Control& control, const RenderOptions& options, TextLines content) {
    const CString head = leadOf(control, 0);
    const CString first = CString(trimRight(head)) + notesOf(control, options);
    TextLines lines;
    if (!first.empty())
        lines.emplace_back(trim(first));
    for (CString& line : content)
        lines.push_back(u"  " + line);
    return lines;
}

CString padded(CString text, std::size_t width) {
    if (text.size() < width)
        text.resize(width, u' ');
    return text;
}

} // namespace ryv
