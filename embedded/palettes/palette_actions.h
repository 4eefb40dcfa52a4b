// What a user does with palette sets, as words: for the command line, scripts and tests.
#pragma once

#include "embedded/palettes/palette_set.h"

#include <span>

namespace drafta {

struct PaletteAction {
    ryv::CStringView name;
    ryv::CStringView prompt; ///< for its value; empty when it has none
    /// False, and nothing is changed, when the value makes no sense or the set cannot do it.
    bool (*run)(PaletteSet& set, ryv::CStringView value);
};

/// All actions, in the order in which they are listed.
std::span<const PaletteAction> paletteActions() noexcept;

/// Case does not count; null when there is none of that name.
const PaletteAction* findPaletteAction(ryv::CStringView name) noexcept;

} // namespace drafta
