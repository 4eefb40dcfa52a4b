// The palette set's own part of the host's saved workspace:
//
//     PRM_PALETTESET  ACTIVE_PALETTE_INDEX
//         PRM_PALETTE  paletteName, topToWholeRatio            one for each palette
//             GROUPCTRL_TOP, GROUPCTRL_BOTTOM  btnSelIndex, minimized, style
#pragma once

#include "platform/host/palettes.h"

namespace ryv {

namespace palette_layout {
inline constexpr CStringView paletteSet = u"PRM_PALETTESET";
inline constexpr CStringView activePalette = u"ACTIVE_PALETTE_INDEX";
inline constexpr CStringView palette = u"PRM_PALETTE";
inline constexpr CStringView paletteName = u"paletteName";
} // namespace palette_layout

/// The child of that name, which is added when it is missing.
WorkspaceNode& childOf(WorkspaceNode& node, CStringView name);

/// The palettes' nodes that carry a palette's name, in the order in which they stand; case does not count.
std::vector<WorkspaceNode*> paletteNodes(const WorkspaceNode& paletteSet, CStringView name);

/// Those of the palette whose name is that message: under its name in the user's language, else under the one
/// that it had in another.
std::vector<WorkspaceNode*> paletteNodes(const WorkspaceNode& paletteSet, int message);

/// How a palette's height is shared out, and what its two groups show. What a node lacks is left as it is.
void savePaletteLayout(HostPalette& palette, WorkspaceNode& node);
void loadPaletteLayout(HostPalette& palette, const WorkspaceNode& node);

} // namespace ryv
