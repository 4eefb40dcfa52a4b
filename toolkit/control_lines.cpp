#include "toolkit/control_lines.h"

#include "base/format.h"
#include "base/text.h"
#include "toolkit/check_box.h"
#include "toolkit/combo_box.h"
#include "toolkit/control_page.h"
#include "toolkit/group_control.h"
#include "toolkit/label_text.h"
#include "toolkit/picture.h"
#include "toolkit/plain_text.h"
#include "toolkit/radio_group.h"
#include "toolkit/row_lines.h"
#include "toolkit/text_field.h"

#include <algorithm>

namespace ryv {

namespace {

constexpr std::size_t widestRadioLine = 60;

TextLines render(const TextField& field, const RenderOptions& options, std::size_t width) {
    if (field.isMultiLine()) {
        TextLines content;
        for (const CString& line : split(field.text(), u'\n'))
            content.push_back(CString(trimRight(u"| " + onOneLine(line))));
        return headed(field, options, std::move(content));
    }
    const CString text = onOneLine(field.text());
    const CString shown = field.isReadOnly() ? text : u"[" + text + u"]";
    return {leadOf(field, width) + shown + notesOf(field, options)};
}

TextLines render(const ComboBox& box, const RenderOptions& options, std::size_t width) {
    CString line = leadOf(box, width) + u"[" + onOneLine(box.text()) + u"|v]" + notesOf(box, options);
    CString choices;
    std::size_t shown = 0;
    for (const Choice& row : box.rows()) {
        if (row.separator)
            continue;
        if (shown++ < options.mostChoices)
            choices +=
                (choices.empty() ? u"" : u" | ") + CString(row.marked ? u"*" : u"") + onOneLine(row.text);
    }
    if (shown > options.mostChoices)
        choices += format(u" | ... %d more", {shown - options.mostChoices});
    return {choices.empty() ? line : line + u"  " + choices};
}

TextLines render(const RadioGroup& group, const RenderOptions& options, std::size_t width) {
    TextLines choices;
    std::size_t length = 0;
    for (std::size_t i = 0; i < group.choices().size(); ++i) {
        const CStringView mark = group.chosen() == i ? u"(*) " : u"( ) ";
        choices.push_back(CString(mark) + onOneLine(group.choices()[i].text));
        length += choices.back().size() + 2;
    }
    if (length > widestRadioLine)
        return headed(group, options, std::move(choices));
    CString line = leadOf(group, width);
    for (std::size_t i = 0; i < choices.size(); ++i)
        line += (i == 0 ? u"" : u"  ") + choices[i];
    return {line + notesOf(group, options)};
}

TextLines render(const GroupControl& group, const RenderOptions& options) {
    CString captions;
    for (std::size_t i = 0; i < group.pages().size(); ++i) {
        const CString caption = onOneLine(group.pages()[i].caption);
        const bool selected = group.selectedPage() == static_cast<int>(i);
        captions += (i == 0 ? u"" : u"  ") + (selected ? u"[" + caption + u"]" : caption);
    }
    TextLines content{captions + (group.isMinimized() ? u"  (minimized)" : u"")};
    if (group.isMinimized() || group.selectedPage() < 0)
        return content;
    if (options.mostDepth == 0) {
        content.emplace_back(u"  ...");
        return content;
    }
    RenderOptions inside = options;
    --inside.mostDepth;
    for (CString& line :
        linesOf(*group.pages()[static_cast<std::size_t>(group.selectedPage())].content, inside))
        content.push_back(u"  " + line);
    return content;
}

/// Without the buttons, which only offer in a shorter way what menus do.
TextLines render(const ControlPage& page, const RenderOptions& options) {
    if (options.mostDepth == 0)
        return {u"..."};
    RenderOptions inside = options;
    --inside.mostDepth;
    TextLines lines = page.content() ? linesOf(*page.content(), inside) : TextLines();
    if (page.notice())
        for (CString& line : linesOf(*page.notice(), inside))
            lines.push_back(std::move(line));
    return lines;
}

TextLines render(const NoticeLine& notice) {
    if (notice.text().empty())
        return {};
    const CString offer = notice.offer().empty() ? CString() : u" <" + onOneLine(notice.offer()) + u">";
    return {onOneLine(notice.text()) + offer};
}

} // namespace

std::size_t labelWidthOf(const Control& control) {
    const auto* const field = dynamic_cast<const TextField*>(&control);
    const bool inFront = field ? !field->isMultiLine() : control.kind() == ControlKind::combo;
    return inFront && control.isVisible() ? leadOf(control, 0).size() : 0;
}

CString buttonText(const Control& button, bool isDefault, const RenderOptions& options) {
    CString label = labelOf(button);
    if (label.empty())
        label = onOneLine(button.name());
    const CString text = isDefault ? u"<<" + label + u">>" : u"<" + label + u">";
    return text + notesOf(button, options);
}

TextLines linesOf(const Control& control, const RenderOptions& options, std::size_t labelWidth) {
    if (!control.isVisible())
        return {};
    if (const auto* const field = dynamic_cast<const TextField*>(&control))
        return render(*field, options, labelWidth);
    if (const auto* const combo = dynamic_cast<const ComboBox*>(&control))
        return render(*combo, options, labelWidth);
    if (const auto* const radio = dynamic_cast<const RadioGroup*>(&control))
        return render(*radio, options, labelWidth);
    if (const auto* const group = dynamic_cast<const GroupControl*>(&control))
        return render(*group, options);
    if (const auto* const page = dynamic_cast<const ControlPage*>(&control))
        return render(*page, options);
    if (const auto* const notice = dynamic_cast<const NoticeLine*>(&control))
        return render(*notice);
    if (const auto* const box = dynamic_cast<const CheckBox*>(&control))
        return {(box->isChecked() ? u"[x] " : u"[ ] ") + labelOf(control) + notesOf(control, options)};
    if (const auto* const picture = dynamic_cast<const Picture*>(&control))
        return {picture->drawing().empty() ? u"(no picture)"
                                           : u"(picture of " + onOneLine(picture->drawing()) + u")"};
    if (control.kind() == ControlKind::button)
        return {buttonText(control, false, options)};
    if (control.kind() == ControlKind::label)
        return {labelOf(control)};
    return rowLines(control, options);
}

} // namespace ryv
