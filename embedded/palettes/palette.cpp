#include "embedded/palettes/palette.h"

#include <algorithm>
#include <cmath>

namespace drafta {

void Palette::setHeader(ryv::Control& content) {
    header_ = &content;
    changed.fire();
}

void Palette::setTopToWholeRatio(double ratio) {
    if (std::isnan(ratio))
        return;
    ratio_ = std::clamp(ratio, 0.0, 1.0);
    changed.fire();
}

} // namespace drafta
