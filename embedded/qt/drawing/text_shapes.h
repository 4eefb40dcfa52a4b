// The letters of drawings' texts, shaped once and drawn at every size.
#pragma once

#include "embedded/drawings/display_list.h"

#include <QFont>
#include <QGlyphRun>
#include <QTransform>

#include <vector>

namespace drafta {

/// The letters of one text around its place, in pixels of the font that texts are shaped with.
struct TextShape {
    struct Run {
        QGlyphRun glyphs;
        QPointF place;
    };
    std::vector<Run> runs;
    QRectF box;
    double stretch = 1, size = 1; ///< of the width, and of both, where the text has to fit
};

/// Shapes texts. The main thread only, as fonts are.
class TextShaper {
public:
    TextShaper();

    TextShape shape(const DisplayText& text, const ryv::CString& letters) const;

    /// The height of a capital letter in the shapes, in pixels.
    double capHeight() const noexcept { return capHeight_; }

private:
    QFont font_;
    double capHeight_, descent_;
};

} // namespace drafta
