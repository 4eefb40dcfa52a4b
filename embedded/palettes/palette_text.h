// The palette sets as text, for a host that draws nothing.
#pragma once

#include "embedded/palettes/palette_framework.h"

namespace drafta {

/// What a person would see of the palette sets now: of each a line that says where it is, and below it, when
/// it is shown and not rolled up, the palette whose tab is selected with the selected page of each group.
/// Lines end with "\n".
/// Of lists and trees there are at most so many rows.
ryv::CString shownPalettes(const PaletteFramework& palettes, std::size_t mostRows = 20);

} // namespace drafta
