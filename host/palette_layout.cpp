#include "host/palette_layout.h"

#include "base/fold.h"
#include "resources/messages.h"

#include <cmath>

namespace ryv {

namespace {

constexpr CStringView ratio = u"topToWholeRatio";
constexpr CStringView topGroup = u"GROUPCTRL_TOP";
constexpr CStringView bottomGroup = u"GROUPCTRL_BOTTOM";
constexpr CStringView selectedPage = u"btnSelIndex";
constexpr CStringView minimized = u"minimized";
constexpr CStringView style = u"style";

void saveGroup(HostGroupControl& group, WorkspaceNode& node) {
    node.setInteger(selectedPage, group.selectedPage());
    node.setInteger(minimized, group.isMinimized() ? 1 : 0);
    node.setInteger(style, group.style());
}

void loadGroup(HostGroupControl& group, const WorkspaceNode* node) {
    if (!node)
        return;
    std::int32_t number = 0;
    if (node->integer(selectedPage, number))
        group.selectPage(number);
    if (node->integer(minimized, number) && number == 1)
        group.setMinimized(true);
    if (node->integer(style, number))
        group.setStyle(number);
}

} // namespace

WorkspaceNode& childOf(WorkspaceNode& node, CStringView name) {
    WorkspaceNode* const child = node.findChild(name);
    return child ? *child : node.addChild(name);
}

std::vector<WorkspaceNode*> paletteNodes(const WorkspaceNode& paletteSet, CStringView name) {
    std::vector<WorkspaceNode*> nodes;
    for (const auto& child : paletteSet.children()) {
        CString stored;
        if (equalNoCase(child->name(), palette_layout::palette) &&
            child->string(palette_layout::paletteName, stored) && equalNoCase(stored, name))
            nodes.push_back(child.get());
    }
    return nodes;
}

std::vector<WorkspaceNode*> paletteNodes(const WorkspaceNode& paletteSet, int message) {
    std::vector<WorkspaceNode*> nodes = paletteNodes(paletteSet, messageText(message));
    for (const Language other : {Language::english, Language::german})
        if (nodes.empty())
            nodes = paletteNodes(paletteSet, messageText(message, other));
    return nodes;
}

void savePaletteLayout(HostPalette& palette, WorkspaceNode& node) {
    node.setReal(ratio, palette.topToWholeRatio());
    saveGroup(palette.top(), childOf(node, topGroup));
    saveGroup(palette.bottom(), childOf(node, bottomGroup));
}

void loadPaletteLayout(HostPalette& palette, const WorkspaceNode& node) {
    double share = 0;
    if (node.real(ratio, share) && std::isfinite(share))
        palette.setTopToWholeRatio(share);
    loadGroup(palette.top(), node.findChild(topGroup));
    loadGroup(palette.bottom(), node.findChild(bottomGroup));
}

} // namespace ryv
