#include "resources/setting_texts.h"

#include "resources/catalogue.h"

namespace ryv {

namespace {

// The texts are the package's own, as users know them, spelling included.
// clang-format off
constexpr SettingText texts[] = {
    {u"CFG037", u"Ladder default: H=horizontal, V=vertical"},
    {u"CFG038", u"1=reference numbers,2=ruling,3=user block,4=X-Y,5=X-Zone,6=lref sheet and numbers,7=lref Sheet (-) Numbers,8=lref Numbers in Hexagon,9=lref Sheet and numbers in hexagon"},
    {u"CFG039", u"Component tags: R=reference, S=sequential based"},
    {u"CFG040", u"Component tag suffix list"},
    {u"CFG041", u"Component tag format (ex: %F%N)"},
    {u"CFG042", u"Wire numbering mode: R=reference,S=sequential"},
    {u"CFG043", u"Wire number suffix list"},
    {u"CFG044", u"Wire number format (ex: %N)"},
    {u"CFG045", u"Wire numbering increment (Sequential mode)"},
    {u"CFG046", u"Default ladder rung-to-rung distance"},
    {u"CFG047", u"Default width for new ladders"},
    {u"CFG048", u"On-page (same drawing) cross-reference format (ex: %N)"},
    {u"CFG049", u"Ladder line reference increment"},
    {u"CFG050", u"0=draw all rungs, 1=skip every other rung"},
    {u"CFG051", u"Default 3-phase bus spacing"},
    {u"CFG052", u"X coor origin for X-Y or X-zone"},
    {u"CFG053", u"Y coor origin for X-Y or X-zone"},
    {u"CFG054", u"Horizontal interval spacing for X-Y or X-zone"},
    {u"CFG055", u"Vertical interval spacing for X-Y referncing"},
    {u"CFG056", u"Horizontal starting character for X-Y or X-zone"},
    {u"CFG057", u"Vertical starting character for X-Y referencing"},
    {u"CFG058", u"X-Y referencing format: 0=V-H, 1=H-V"},
    {u"CFG059", u"X-Y referencing - delimiter character"},
    {u"CFG060", u"Wire layers"},
    {u"CFG061", u"Layer for wire numbers"},
    {u"CFG062", u"Layer for extra wire number copies"},
    {u"CFG063", u"Layer for FIXED wire numbers"},
    {u"CFG064", u"Unit scale factor (ex: 1.0 or 25.4)"},
    {u"CFG065", u"Feature scaling factor (default 1.0)"},
    {u"CFG066", u"Layer for schematic component tags"},
    {u"CFG067", u"Layer for cross-reference text"},
    {u"CFG068", u"Layer for schematic parent description text"},
    {u"CFG069", u"Layer for terminal numbers"},
    {u"CFG070", u"Layer for child cross-reference text"},
    {u"CFG071", u"Layer for schematic child description text"},
    {u"CFG072", u"Layer for Function/Installation and Location text"},
    {u"CFG073", u"Layer for switch position label text"},
    {u"CFG074", u"Layer for schematic miscellaneous text"},
    {u"CFG075", u"Wire leaders: 0=as required, 1=always, 2=never"},
    {u"CFG076", u"Default PLC graphics style number"},
    {u"CFG077", u"Default signal arrow style number"},
    {u"CFG078", u"Layer for dashed link polylines"},
    {u"CFG079", u"Layer for schematic component graphics"},
    {u"CFG080", u"Off-page cross-reference format (ex: %S-%N)"},
    {u"CFG081", u"Layer for FIXED component tags"},
    {u"CFG082", u"Wire crossing gap style (0=gap, 1=loop, 2=no gap)"},
    {u"CFG083", u"Layer for terminal/signal wire number text"},
    {u"CFG084", u"Layer list for In-line fan in/out single lines"},
    {u"CFG085", u"In-line fan in/out symbol style number"},
    {u"CFG086", u"Layer for location box outline"},
    {u"CFG090", u"Re-tag and wire numbering sort mode"},
};
// clang-format on

} // namespace

namespace english {
std::span<const SettingText> settingTexts() noexcept {
    return texts;
}
} // namespace english

CStringView settingText(CStringView key) noexcept {
    const bool isGerman = language() == Language::german;
    for (const SettingText& entry : isGerman ? german::settingTexts() : english::settingTexts())
        if (entry.key == key)
            return entry.text;
    return {};
}

} // namespace ryv
