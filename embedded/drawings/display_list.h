// What a drawing looks like: the shapes of its model space, block references taken apart, ready to be
// painted.
//
// Everything is seen from above. What is not drawn (off, frozen or invisible, on paper, of a kind that is not
// known) is left out here, so that whoever paints decides nothing but how. A list knows nothing of the
// drawing that it was made from, and is never changed afterwards: threads may share it.
#pragma once

#include "base/strings.h"
#include "embedded/drawings/affine.h"

#include <cstdint>
#include <vector>

namespace drafta {

class DrawingContent;

/// How a shape is painted.
struct DisplayStyle {
    std::uint16_t colour = 7;  ///< colour number of the format, 1 to 255
    std::uint16_t pattern = 0; ///< in DisplayList::patterns
    std::uint32_t layer = 0;   ///< in the order in which layers come up; of use for comparison only

    friend bool operator==(const DisplayStyle&, const DisplayStyle&) = default;
};

struct DisplayLine {
    PlanePoint from, to;
    DisplayStyle style;
};

/// A part of an ellipse: centre + across * cos(a) + up * sin(a) for a from `start` to `start` + `sweep`, both
/// in radians; `sweep` may be negative and is at most a full turn.
struct DisplayArc {
    PlanePoint centre, across, up;
    double start = 0;
    double sweep = 0;
    DisplayStyle style;

    PlanePoint at(double angle) const noexcept;
};

/// Four corners in their order around the area; three when the last two are equal.
struct DisplayArea {
    PlanePoint corners[4];
    DisplayStyle style;
};

struct DisplayPoint {
    PlanePoint place;
    DisplayStyle style;
};

enum class TextHorizontal : std::uint8_t { left, centre, right };
enum class TextVertical : std::uint8_t { baseline, bottom, middle, top };

/// How wide a text is made.
enum class TextFit : std::uint8_t {
    none,   ///< as wide as its letters are
    width,  ///< stretched or squeezed to DisplayText::width
    whole,  ///< the same, height and all
    wrapped ///< broken into lines of at most DisplayText::width
};

/// A text in one or more lines ('\n' between them), without control codes. A capital letter is `up` high;
/// `along` is the writing direction and, like `up`, one letter height long, but for what narrows or widens
/// the letters.
struct DisplayText {
    std::uint32_t text = 0; ///< in DisplayList::texts
    PlanePoint place, along, up;
    double width = 0;       ///< in lengths of `along`; see TextFit
    double lineSpacing = 0; ///< from baseline to baseline, in lengths of `up`
    TextHorizontal horizontal = TextHorizontal::left;
    TextVertical vertical = TextVertical::baseline;
    TextFit fit = TextFit::none;
    DisplayStyle style;
};

/// A box around all shapes, texts estimated. Empty when there is no shape.
struct DisplayExtents {
    PlanePoint least{1, 1};
    PlanePoint most{0, 0};

    bool isEmpty() const noexcept { return least.x > most.x; }
    void add(PlanePoint point) noexcept;
};

struct DisplayList {
    std::vector<DisplayArea> areas;
    std::vector<DisplayLine> lines; ///< those of one colour and pattern beside each other
    std::vector<DisplayArc> arcs;
    std::vector<DisplayPoint> points;
    std::vector<DisplayText> writings;
    std::vector<ryv::CString> texts;
    /// Dash, gap, dash, gap ... in drawing units, the dash first; 0 is a dot. Number 0 is the unbroken line.
    std::vector<std::vector<double>> patterns;
    DisplayExtents extents;
    std::size_t unknown = 0;    ///< entities of kinds that are not drawn
    std::size_t outOfRange = 0; ///< shapes left out for coordinates that no drawing has
    bool isCut = false;         ///< a limit was met, and the rest is missing

    std::size_t size() const noexcept {
        return areas.size() + lines.size() + arcs.size() + points.size() + writings.size();
    }
};

/// What a list may take, so that no drawing can use up memory or time.
struct DisplayLimits {
    std::size_t shapes = 2'000'000;     ///< in the list, and in the drawing
    std::size_t steps = 8'000'000;      ///< for taking references apart, and as many for filling hatches
    std::size_t textUnits = 16'000'000; ///< of all texts together
    std::size_t depth = 24;             ///< of references in blocks
    double coordinate = 1e12;           ///< largest magnitude
};

/// Makes the list in one pass over the drawing. References that would hold themselves end there.
DisplayList makeDisplayList(const DrawingContent& content, const DisplayLimits& limits = {});

} // namespace drafta
