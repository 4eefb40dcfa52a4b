// The lines of controls that hold rows: lists, grids, trees.
#pragma once

#include "toolkit/label_text.h"

namespace ryv {

/// Nothing for controls of other kinds.
TextLines rowLines(const Control& control, const RenderOptions& options);

} // namespace ryv
