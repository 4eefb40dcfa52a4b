#include "embedded/drawings/display_text.h"
#include "embedded/drawings/display_geometry.h"
#include "embedded/drawings/plain_text.h"

#include <cmath>
#include <numbers>

namespace drafta {

using ryv::CString;

namespace {

constexpr double baselinesApart = 5.0 / 3.0; // of the format's texts in several lines

double radians(double degrees) {
    return degrees / 180 * std::numbers::pi;
}

/// The places of codes 72 and 73 (74 in attributes).
namespace justify {
constexpr int aligned = 3, middle = 4, fit = 5;
}

/// The frame of a text: directions of reading and of letters' stems.
void setFrame(DisplayText& text, double angle, double height, double widthFactor, double slant) {
    const PlanePoint across{std::cos(angle) * height, std::sin(angle) * height};
    const PlanePoint upright{-across.y, across.x};
    text.along = across * widthFactor;
    text.up = upright + across * std::tan(slant);
}

void setJustification(DisplayText& text, int horizontal, int vertical) {
    if (horizontal == justify::middle) {
        text.horizontal = TextHorizontal::centre;
        text.vertical = TextVertical::middle;
        return;
    }
    text.horizontal = horizontal == 1   ? TextHorizontal::centre
                      : horizontal == 2 ? TextHorizontal::right
                                        : TextHorizontal::left;
    text.vertical = vertical == 1   ? TextVertical::bottom
                    : vertical == 2 ? TextVertical::middle
                    : vertical == 3 ? TextVertical::top
                                    : TextVertical::baseline;
}

/// A text between two points: written from one to the other, and as wide as they are apart.
void spread(DisplayText& text, PlanePoint to, const DxfRecord& record, bool isWhole) {
    const PlanePoint way = to - text.place;
    const double length = std::hypot(way.x, way.y);
    const double height = std::hypot(text.up.x, text.up.y);
    if (!(length > 0))
        return;
    setFrame(text, std::atan2(way.y, way.x), height, record.real(41).value_or(1), 0);
    text.fit = isWhole ? TextFit::whole : TextFit::width;
    text.width = length / std::hypot(text.along.x, text.along.y);
}

/// Mirrors the letters as the flags of code 71 say.
void mirror(DisplayText& text, int flags) {
    constexpr int backwards = 2, upsideDown = 4;
    if ((flags & backwards) != 0)
        text.along = text.along * -1;
    if ((flags & upsideDown) != 0)
        text.up = text.up * -1;
}

/// The text of a formatted record: pieces (3) and the rest (1).
std::string lettersOf(const DxfRecord& record) {
    std::string letters;
    for (std::size_t i = 1; i < record.ownCount(); ++i)
        if (record.pairs()[i].code == 3)
            letters += record.pairs()[i].value;
    return letters.append(record.text(1));
}

double angleOf(const DxfRecord& record) {
    const double x = record.real(11).value_or(0), y = record.real(21).value_or(0);
    return x != 0 || y != 0 ? std::atan2(y, x) : radians(record.real(50).value_or(0));
}

double factorOf(const DxfRecord& record, int code) {
    const double factor = record.real(code).value_or(1);
    return factor > 0 ? factor : 1;
}

} // namespace

std::optional<DisplayWriting> lineOfText(const DxfRecord& record, const DrawingText& text, int letters) {
    const double height = record.real(40).value_or(0);
    DisplayWriting writing{{}, plainLine(text.decode(record.text(letters)))};
    if (!(height > 0) || writing.text.empty())
        return std::nullopt;
    DisplayText& place = writing.place;
    const int horizontal = record.integer(72, 0);
    const int vertical = record.integer(record.kind() == "TEXT" ? 73 : 74, 0);
    const bool isSpread = horizontal == justify::aligned || horizontal == justify::fit;
    const bool isAligned = (horizontal != 0 || vertical != 0) && record.find(11);
    place.place = planePoint(record, isAligned && !isSpread ? 11 : 10);
    setJustification(place, horizontal, vertical);
    setFrame(place, radians(record.real(50).value_or(0)), height, factorOf(record, 41),
        radians(record.real(51).value_or(0)));
    if (isSpread && isAligned)
        spread(place, planePoint(record, 11), record, horizontal == justify::aligned);
    mirror(place, record.integer(71, 0));
    const Affine plane = planeOf(record, 30);
    place.place = plane.point(place.place);
    place.along = plane.vector(place.along);
    place.up = plane.vector(place.up);
    return writing;
}

std::optional<DisplayWriting> paragraphsOfText(const DxfRecord& record, const DrawingText& text) {
    const double height = record.real(40).value_or(0);
    DisplayWriting writing{{}, plainParagraphs(text.decode(lettersOf(record)))};
    if (!(height > 0) || writing.text.empty())
        return std::nullopt;
    DisplayText& place = writing.place;
    const int attachment = record.integer(71, 1);
    constexpr int columns = 3;
    const int cell = attachment >= 1 && attachment <= 9 ? attachment - 1 : 0;
    place.horizontal = static_cast<TextHorizontal>(cell % columns);
    place.vertical = cell / columns == 0   ? TextVertical::top
                     : cell / columns == 1 ? TextVertical::middle
                                           : TextVertical::bottom;
    place.place = planePoint(record, 10);
    setFrame(place, angleOf(record), height, 1, 0);
    place.lineSpacing = baselinesApart * factorOf(record, 44);
    if (const double width = record.real(41).value_or(0); width > 0) {
        place.fit = TextFit::wrapped;
        place.width = width / height;
    }
    return writing;
}

} // namespace drafta
