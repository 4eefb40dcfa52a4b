#include "embedded/palettes/palette_text.h"

#include "base/fold.h"
#include "base/format.h"
#include "base/text.h"
#include "toolkit/text_renderer.h"

#include <cmath>

namespace drafta {

namespace {

ryv::CString placeOf(PaletteSet& set) {
    const ryv::ScreenRectangle& place = set.rectangle();
    if (set.window() == ryv::WindowHandle::none)
        return u"no window";
    if (!set.isVisible())
        return u"hidden";
    if (set.dock() != Dock::floating)
        return ryv::format(u"docked %s", {ryv::toLower(nameOf(set.dock()))});
    return ryv::format(u"floating at %d,%d, %d x %d%s",
        {place.left, place.top, place.width, place.height, set.isRolledUp() ? u", rolled up" : u""});
}

/// Names beside each other, the selected one in brackets.
ryv::CString tabs(const ryv::CStringArray& names, int selected) {
    ryv::CString line;
    for (std::size_t i = 0; i < names.size(); ++i) {
        const bool isSelected = selected >= 0 && i == static_cast<std::size_t>(selected);
        line += (i == 0 ? u"" : u" ") + (isSelected ? u'[' + names[i] + u']' : names[i]);
    }
    return line;
}

void appendIndented(ryv::CString& text, ryv::CStringView lines) {
    for (const ryv::CString& line : ryv::split(lines, u'\n'))
        if (!line.empty())
            text += u"    " + line + u'\n';
}

using Renderer = ryv::TextRenderer;

void appendGroup(
    ryv::CString& text, GroupControl& group, ryv::CStringView where, double share, const Renderer& renderer) {
    ryv::CStringArray captions;
    for (const GroupControl::Page& page : group.pages())
        captions.push_back(page.caption);
    if (captions.empty())
        return;
    text += ryv::format(
        u"  %s (%s, %d %%%s)\n", {tabs(captions, group.selectedPage()), where, std::lround(share * 100),
                                     group.isMinimized() ? u", minimized" : u""});
    if (!group.isMinimized() && group.selectedPage() >= 0)
        appendIndented(
            text, renderer.control(*group.pages()[static_cast<std::size_t>(group.selectedPage())].content));
}

void appendPalette(ryv::CString& text, Palette& palette, const Renderer& renderer) {
    if (palette.header())
        appendIndented(text, renderer.control(*palette.header()));
    appendGroup(text, palette.top(), u"top", palette.topToWholeRatio(), renderer);
    appendGroup(text, palette.bottom(), u"bottom", 1 - palette.topToWholeRatio(), renderer);
}

} // namespace

ryv::CString shownPalettes(const PaletteFramework& palettes, std::size_t mostRows) {
    ryv::RenderOptions options;
    options.mostRows = mostRows;
    const Renderer renderer(options);
    ryv::CString text;
    for (PaletteSet* const set : palettes.sets()) {
        text += set->name() + u": " + placeOf(*set) + u'\n';
        Palette* const shown = set->shownPalette();
        if (!set->isVisible() || set->isRolledUp() || !shown)
            continue;
        ryv::CStringArray names;
        for (const auto& palette : set->palettes())
            names.push_back(palette->name());
        text += u"  " + tabs(names, set->activePalette()) + u'\n';
        appendPalette(text, *shown, renderer);
    }
    return text;
}

} // namespace drafta
