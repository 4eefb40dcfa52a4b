#include "embedded/palettes/palette.h"

#include <algorithm>
#include <cmath>

namespace drafta {

void Palette::setTopToWholeRatio(double ratio) {
    if (!std::isnan(ratio))
        ratio_ = std::clamp(ratio, 0.0, 1.0);
}

} // namespace drafta
