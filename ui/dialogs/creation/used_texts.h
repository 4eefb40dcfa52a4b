// What the drawings of a project say of themselves, to be chosen from.
#pragma once

#include "toolkit/choice.h"

namespace ryv {

class RyvPrmProjectData;

/// Each text once, in the order in which they come first in the project's tree; empty ones are none.
struct UsedTexts {
    Choices descriptions; ///< lines, whatever their numbers
    Choices sections;
    Choices subSections;
    std::size_t drawings = 0; ///< how many there are
};

/// Takes one walk over the drawings.
UsedTexts usedTextsOf(const RyvPrmProjectData& project);

} // namespace ryv
