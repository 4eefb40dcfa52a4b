#include "embedded/qt/drawing/text_shapes.h"
#include "embedded/qt/qt_text.h"

#include <QFontMetricsF>
#include <QTextLayout>

#include <algorithm>

namespace drafta {

namespace {

constexpr int shapedSize = 48;      // pixels; large enough that places of letters are not rounded
constexpr double widest = 1e6;      // pixels; a line that is not broken
constexpr qsizetype longest = 4096; // units of a line that are drawn
constexpr std::size_t mostLines = 500;

struct Line {
    QList<QGlyphRun> runs;
    double width = 0;
    double ascent = 0; // of the layout, from its top to the baseline
};

/// The lines of a text, broken where it says so, and between words where they get wider than `width`.
std::vector<Line> linesOf(const QString& text, const QFont& font, double width) {
    std::vector<Line> lines;
    for (const QStringView paragraph : QStringView(text).split(u'\n')) {
        if (lines.size() >= mostLines)
            break;
        QTextLayout layout(paragraph.left(longest).toString(), font);
        layout.beginLayout();
        std::vector<QTextLine> broken;
        for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
            line.setLineWidth(width);
            broken.push_back(line);
        }
        layout.endLayout();
        for (const QTextLine& line : broken)
            lines.push_back({line.glyphRuns(), line.naturalTextWidth(), line.y() + line.ascent()});
    }
    return lines;
}

double leftOf(TextHorizontal horizontal, double width) {
    return horizontal == TextHorizontal::left ? 0 : horizontal == TextHorizontal::right ? -width : -width / 2;
}

} // namespace

TextShaper::TextShaper() : font_(QStringLiteral("sans-serif")) {
    font_.setStyleHint(QFont::SansSerif);
    font_.setHintingPreference(QFont::PreferNoHinting);
    font_.setPixelSize(shapedSize);
    const QFontMetricsF metrics(font_);
    capHeight_ = std::max(metrics.capHeight(), 1.0);
    descent_ = metrics.descent();
}

TextShape TextShaper::shape(const DisplayText& text, const ryv::CString& letters) const {
    const double wanted = std::min(text.width * capHeight_, widest);
    const bool wraps = text.fit == TextFit::wrapped;
    const std::vector<Line> lines = linesOf(toQt(letters), font_, wraps ? wanted : widest);
    const double spacing = text.lineSpacing * capHeight_;
    const double below = spacing * static_cast<double>(lines.size() - 1); // the first baseline
    double baseline = 0;
    if (text.vertical == TextVertical::top)
        baseline = capHeight_;
    else if (text.vertical == TextVertical::middle)
        baseline = (capHeight_ - below) / 2;
    else if (text.vertical == TextVertical::bottom)
        baseline = -below - descent_;
    TextShape shape;
    double width = 0;
    for (const Line& line : lines) {
        const double left = leftOf(text.horizontal, line.width);
        for (const QGlyphRun& run : line.runs)
            shape.runs.push_back({run, {left, baseline - line.ascent}});
        shape.box |= QRectF(left, baseline - shapedSize, line.width, shapedSize * 1.5);
        width = std::max(width, line.width);
        baseline += spacing;
    }
    if (text.fit == TextFit::width && width > 0)
        shape.stretch = wanted / width;
    if (text.fit == TextFit::whole && width > 0)
        shape.size = wanted / width;
    return shape;
}

} // namespace drafta
