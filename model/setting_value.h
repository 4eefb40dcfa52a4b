// A drawing setting where absent and empty come to the same.
#pragma once

#include "model/drawing_settings.h"

namespace ryv {

/// The value at an index; empty when it is absent or the index is outside 0..76.
inline CString valueOrEmpty(const RyvCfgDrawingSettings& settings, int index) {
    const CString* const value = settings.find(index);
    return value ? *value : CString();
}

} // namespace ryv
