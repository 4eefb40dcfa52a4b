#include "embedded/palettes/palette_actions.h"

#include "base/fold.h"
#include "base/text.h"

#include <array>
#include <charconv>

namespace drafta {

namespace {

using ryv::CStringView;

bool hasWindow(PaletteSet& set) {
    return set.window() != ryv::WindowHandle::none;
}

/// Without regard to case; nothing for words that are neither.
std::optional<bool> oneOf(CStringView value, CStringView yes, CStringView no) {
    if (ryv::equalNoCase(value, yes))
        return true;
    return ryv::equalNoCase(value, no) ? std::optional(false) : std::nullopt;
}

bool close(PaletteSet& set, CStringView) {
    const bool closes = set.isVisible();
    set.show(false);
    return closes;
}

/// Where the set was when it floated last, or "left,top,width,height".
bool undock(PaletteSet& set, CStringView value) {
    if (value.empty())
        return set.floatAt(set.rectangle());
    std::array<int, 4> numbers{};
    const ryv::CStringArray parts = ryv::split(value, u',');
    if (parts.size() != numbers.size())
        return false;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const std::optional<long long> number = ryv::parseInteger(ryv::trim(parts[i]));
        if (!number || *number < -32768 || *number > 32767)
            return false;
        numbers[i] = static_cast<int>(*number);
    }
    const auto [left, top, width, height] = numbers;
    return width > 0 && height > 0 && set.floatAt({left, top, width, height});
}

bool dock(PaletteSet& set, CStringView value) {
    const std::optional<Dock> side = dockNamed(value);
    return side && *side != Dock::floating && set.dockAt(*side);
}

bool rollUp(PaletteSet& set, CStringView value) {
    const std::optional<bool> on = oneOf(value, u"ON", u"OFF");
    return on && set.setRollsUp(*on);
}

bool selectTab(PaletteSet& set, CStringView value) {
    for (std::size_t i = 0; i < set.palettes().size(); ++i)
        if (ryv::equalNoCase(set.palettes()[i]->name(), value))
            return set.selectPalette(static_cast<int>(i));
    return false;
}

/// A caption of either group of the palette whose tab is selected.
bool selectPage(PaletteSet& set, CStringView value) {
    Palette* const palette = set.shownPalette();
    if (!palette || !hasWindow(set))
        return false;
    for (GroupControl* const group : {&palette->top(), &palette->bottom()}) {
        const int page = group->findPage(value);
        group->selectPage(page);
        if (page >= 0)
            return true;
    }
    return false;
}

bool setMinimized(PaletteSet& set, CStringView value, bool minimized) {
    Palette* const palette = set.shownPalette();
    const std::optional<bool> isTop = oneOf(value, u"TOP", u"BOTTOM");
    if (!palette || !isTop || !hasWindow(set))
        return false;
    (*isTop ? palette->top() : palette->bottom()).setMinimized(minimized);
    return true;
}

bool minimize(PaletteSet& set, CStringView value) {
    return setMinimized(set, value, true);
}

bool restore(PaletteSet& set, CStringView value) {
    return setMinimized(set, value, false);
}

bool moveSplitter(PaletteSet& set, CStringView value) {
    Palette* const palette = set.shownPalette();
    const std::string text = ryv::toAscii(value);
    double ratio = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), ratio);
    const bool isRatio = error == std::errc() && end == text.data() + text.size() && ratio >= 0 && ratio <= 1;
    if (!palette || !isRatio || !hasWindow(set))
        return false;
    palette->setTopToWholeRatio(ratio);
    return true;
}

constexpr std::array<PaletteAction, 9> actions = {{
    {u"CLOSE", u"", close},
    {u"FLOAT", u"Left,top,width,height (empty: where it was): ", undock},
    {u"DOCK", u"Side (LEFT, RIGHT, TOP, BOTTOM): ", dock},
    {u"ROLLUP", u"Roll up when it is not used (ON, OFF): ", rollUp},
    {u"TAB", u"Name of the palette: ", selectTab},
    {u"PAGE", u"Caption of the page: ", selectPage},
    {u"MINIMIZE", u"Group (TOP, BOTTOM): ", minimize},
    {u"RESTORE", u"Group (TOP, BOTTOM): ", restore},
    {u"RATIO", u"Share of the height for the top group (0 to 1): ", moveSplitter},
}};

} // namespace

std::span<const PaletteAction> paletteActions() noexcept {
    return actions;
}

const PaletteAction* findPaletteAction(CStringView name) noexcept {
    for (const PaletteAction& action : actions)
        if (ryv::equalNoCase(action.name, name))
            return &action;
    return nullptr;
}

} // namespace drafta
