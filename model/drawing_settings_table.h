// What is fixed about each of the drawing settings.
#pragma once

#include "model/drawing_settings.h"

#include <array>

namespace ryv::detail {

struct DrawingSetting {
    const char16_t* tag;          ///< attribute name in a drawing's settings block
    const char16_t* messageKey;   ///< key of the description in the package's message files, or empty
    const char16_t* defaultValue; ///< for a drawing without a project and without a host document
};

/// By index.
extern const std::array<DrawingSetting, RyvCfgDrawingSettings::count> drawingSettings;

} // namespace ryv::detail
