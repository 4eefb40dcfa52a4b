#include "toolkit/text_renderer.h"

#include "base/format.h"
#include "base/text.h"
#include "toolkit/control_lines.h"
#include "toolkit/plain_text.h"

#include <algorithm>

namespace ryv {

namespace {

constexpr CStringView indent = u"  ";
constexpr CStringView between = u"   ";
constexpr std::size_t widestLabel = 40;
constexpr std::size_t barLength = 20;

void markFocus(CString& line) {
    line.replace(0, 1, u">");
}

/// Collects the lines of a dialog.
class DialogText {
public:
    DialogText(const RenderOptions& options, int focus) : options_(options), focus_(focus) {}

    void title(CStringView text);
    void line(CStringView text) { lines_.push_back(CString(trimRight(text))); }
    void panel(const Panel& panel);
    void pages(const PropertySheet& sheet);
    void buttons(const Dialog& dialog);
    CString text() const;

private:
    void row(TextLines lines, bool focused, bool joins);

    RenderOptions options_;
    int focus_;
    TextLines lines_;
};

void DialogText::title(CStringView text) {
    const CString shown = onOneLine(text);
    line(shown);
    line(CString(shown.size(), u'='));
}

/// Controls that stand beside each other share a line while each has but one.
void DialogText::row(TextLines lines, bool focused, bool joins) {
    if (lines.empty())
        return;
    if (joins && lines.size() == 1) {
        lines_.back() += CString(between) + lines.front();
        if (focused)
            markFocus(lines_.back());
        return;
    }
    for (CString& text : lines)
        line(CString(indent) + text);
    if (focused)
        markFocus(lines_[lines_.size() - lines.size()]);
}

void DialogText::panel(const Panel& panel) {
    std::size_t width = 0;
    for (const Panel::Place& place : panel.places())
        if (!place.sameRow)
            width = std::max(width, labelWidthOf(*place.control));
    width = std::min(width, widestLabel);
    if (!panel.title().empty()) {
        line(u"");
        line(CString(indent) + u"-- " + onOneLine(panel.title()) + u" --");
    }
    bool rowHasOneLine = false;
    for (const Panel::Place& place : panel.places()) {
        TextLines lines = linesOf(*place.control, options_, place.sameRow || width == 0 ? 0 : width - 1);
        const bool joins = place.sameRow && rowHasOneLine;
        if (!lines.empty())
            rowHasOneLine = lines.size() == 1;
        else if (!place.sameRow)
            rowHasOneLine = false;
        row(std::move(lines), place.control->id() == focus_, joins);
    }
}

void DialogText::pages(const PropertySheet& sheet) {
    CString tabs;
    for (std::size_t i = 0; i < sheet.pages().size(); ++i) {
        const CString title = onOneLine(sheet.pages()[i].title);
        const bool active = sheet.activePage() == static_cast<int>(i);
        tabs += (i == 0 ? u"" : u" | ") + (active ? u"[" + title + u"]" : title);
    }
    line(CString(indent) + tabs);
    if (sheet.activePage() >= 0)
        for (const Panel* const part : sheet.pages()[static_cast<std::size_t>(sheet.activePage())].panels)
            panel(*part);
}

void DialogText::buttons(const Dialog& dialog) {
    TextLines row{CString()};
    bool focused = false;
    for (const auto& button : dialog.buttons()) {
        if (!button->isVisible())
            continue;
        row[0] += CString(row[0].empty() ? u"" : indent) +
                  buttonText(*button, button->id() == dialog.defaultButton(), options_);
        focused = focused || button->id() == focus_;
    }
    line(u"");
    this->row(std::move(row), focused, false);
}

CString DialogText::text() const {
    CString text;
    for (const CString& line : lines_)
        text += line + u"\n";
    return text;
}

int widestNumber(const Menu& menu) {
    int widest = 0;
    for (const MenuItem& item : menu.items())
        widest = std::max({widest, item.id, item.submenu ? widestNumber(*item.submenu) : 0});
    return widest;
}

CString itemText(const MenuItem& item) {
    CString text = onOneLine(withoutMarks(item.text));
    if (item.submenu)
        text += u":";
    return item.enabled ? text : text + u" (disabled)";
}

void addMenu(const Menu& menu, std::size_t width, const CString& margin, CString& text) {
    for (const MenuItem& item : menu.items()) {
        const CString number = item.id == 0 ? CString() : toText(item.id);
        CString line = item.checked ? u"x" : u" ";
        line += item.id != 0 && item.id == menu.defaultItem() ? u"*" : u" ";
        line += CString(width - std::min(width, number.size()), u' ') + number + u"  " + margin;
        line += item.separator ? CString(u"--") : itemText(item);
        text += line + u"\n";
        if (item.submenu)
            addMenu(*item.submenu, width, margin + u"  ", text);
    }
}

} // namespace

CString TextRenderer::control(const Control& control) const {
    CString text;
    for (const CString& line : linesOf(control, options_))
        text += CString(trimRight(line)) + u"\n";
    return text;
}

CString TextRenderer::panel(const Panel& panel) const {
    DialogText text(options_, 0);
    text.panel(panel);
    return text.text();
}

CString TextRenderer::dialog(const Dialog& dialog) const {
    DialogText text(options_, dialog.focus());
    text.title(dialog.title());
    for (const Panel* const panel : dialog.panels())
        text.panel(*panel);
    if (const auto* const sheet = dynamic_cast<const PropertySheet*>(&dialog))
        text.pages(*sheet);
    text.buttons(dialog);
    return text.text();
}

CString TextRenderer::menu(const Menu& menu) const {
    CString text;
    addMenu(menu, toText(widestNumber(menu)).size(), {}, text);
    return text;
}

CString TextRenderer::progress(const ProgressModel& progress) const {
    CString line = onOneLine(progress.title()) + u": ";
    if (progress.count() == 0) {
        line += toText(static_cast<long long>(progress.done()));
    } else {
        const std::size_t full = barLength * static_cast<std::size_t>(progress.percent()) / 100;
        line += u"[" + CString(full, u'#') + CString(barLength - full, u'.') + u"]";
        line += format(u" %d of %d", {progress.done(), progress.count()});
    }
    return CString(trimRight(line + u"  " + onOneLine(progress.item()))) + u"\n";
}

} // namespace ryv
