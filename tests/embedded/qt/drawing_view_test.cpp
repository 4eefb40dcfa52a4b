// Drawings on screen: what is painted where, moving and zooming, previews that are read beside the window.
#include "embedded/drawings/drawing_content.h"
#include "embedded/qt/drawing/picture_reader.h"
#include "embedded/qt/drawing/picture_view.h"
#include "embedded/qt/qt_text.h"
#include "tests/support/temp_folder.h"

#include <QImage>
#include <QPainter>
#include <QPointer>
#include <QTest>
#include <QWheelEvent>
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cmath>
#include <filesystem>

namespace drafta::test {

namespace {

std::string drawingText(const std::string& entities) {
    return "0\nSECTION\n2\nENTITIES\n" + entities + "0\nENDSEC\n0\nEOF\n";
}

std::string lineText(int toX, int toY) {
    return "0\nLINE\n10\n0\n20\n0\n11\n" + std::to_string(toX) + "\n21\n" + std::to_string(toY) + "\n";
}

std::shared_ptr<DisplayList> listOfLine(PlanePoint from, PlanePoint to) {
    auto list = std::make_shared<DisplayList>();
    list->patterns.emplace_back();
    list->lines.push_back({from, to, {}});
    list->extents.add(from);
    list->extents.add(to);
    return list;
}

/// What a list looks like on a canvas of 100 x 100 pixels that shows (0, 0) to (100, 100).
QImage painted(const std::shared_ptr<DisplayList>& list, double scale = 1) {
    const DrawingColours colours(themeFor(Look::light));
    QImage image(100, 100, QImage::Format_RGB32);
    image.fill(colours.canvas());
    QPainter painter(&image);
    DrawingScene(list).paint(painter, {scale, {0, 100}}, image.rect(), colours);
    return image;
}

/// The box of all pixels that are not canvas.
QRect inkOf(const QImage& image) {
    QRect ink;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (QColor(image.pixel(x, y)).lightness() < 128)
                ink |= QRect(x, y, 1, 1);
    return ink;
}

DisplayText textAt(PlanePoint place, TextHorizontal horizontal, TextVertical vertical) {
    DisplayText text;
    text.place = place;
    text.along = {10, 0};
    text.up = {0, 10};
    text.horizontal = horizontal;
    text.vertical = vertical;
    text.lineSpacing = 2;
    return text;
}

/// Reads what the test says, and keeps a note of it.
class ScriptedReader final : public DrawingReader {
public:
    explicit ScriptedReader(std::atomic<int>& reads) : reads_(reads) {}
    DrawingReading read(ryv::CStringView path) override {
        ++reads_;
        if (path == u"\\bad.dwg")
            return {nullptr, u"It is bad."};
        return {listOfLine({0, 0}, {static_cast<double>(path.size()), 1}), {}};
    }

private:
    std::atomic<int>& reads_;
};

class ScriptedSource final : public DrawingSource {
public:
    std::unique_ptr<DrawingReader> makeReader() override { return std::make_unique<ScriptedReader>(reads); }
    std::atomic<int> reads = 0;
};

} // namespace

TEST(DrawingScene, shapes_arePaintedWhereTheyAre) {
    const auto line = listOfLine({10, 20}, {60, 20});
    EXPECT_EQ(inkOf(painted(line)), QRect(10, 80, 50, 1)) << "a level line";
    line->patterns.push_back({10, 20});
    line->lines[0].style.pattern = 1;
    const QImage dashed = painted(line);
    for (const auto& [x, isInk] : {std::pair(15, true), {25, false}, {45, true}, {55, false}})
        EXPECT_EQ(QColor(dashed.pixel(x, 80)).lightness() < 128, isInk) << x;
    auto shapes = std::make_shared<DisplayList>();
    shapes->patterns.emplace_back();
    shapes->arcs.push_back({{50, 50}, {20, 0}, {0, 20}, 0, std::acos(-1.0), {}});
    const QRect half = inkOf(painted(shapes));
    EXPECT_TRUE(QRect(28, 28, 44, 24).contains(half) && half.contains(QRect(33, 32, 34, 14)))
        << half.top() << " to " << half.bottom();
    shapes->arcs.clear();
    shapes->areas.push_back({{{10, 10}, {20, 10}, {20, 30}, {10, 30}}, {1, 0, 0}});
    const QImage area = painted(shapes);
    EXPECT_EQ(QColor(area.pixel(15, 80)), QColor(255, 0, 0));
    EXPECT_EQ(QColor(area.pixel(15, 95)), themeFor(Look::light).canvas);
}

TEST(DrawingScene, text_standsAtItsPlaceInItsSize) {
    auto list = std::make_shared<DisplayList>();
    list->patterns.emplace_back();
    list->texts = {u"HHH", u"H\nH"};
    struct Case {
        TextHorizontal horizontal;
        TextVertical vertical;
        int left, right, top, bottom; // of the letters around (50, 50); 99: as wide as they are
    };
    const std::vector<Case> cases{
        {TextHorizontal::left, TextVertical::baseline, 50, 99, 40, 50},
        {TextHorizontal::right, TextVertical::top, 99, 50, 50, 60},
        {TextHorizontal::left, TextVertical::middle, 50, 99, 45, 55},
    };
    const auto near = [](int a, int b) { return b == 99 || std::abs(a - b) <= 2; };
    for (const Case& c : cases) {
        list->writings = {textAt({50, 50}, c.horizontal, c.vertical)};
        const QRect ink = inkOf(painted(list));
        EXPECT_TRUE(near(ink.left(), c.left) && near(ink.right() + 1, c.right) && near(ink.top(), c.top) &&
                    near(ink.bottom() + 1, c.bottom))
            << ink.left() << " " << ink.right() << " " << ink.top() << " " << ink.bottom();
    }
    list->writings[0].width = 4;
    list->writings[0].fit = TextFit::width;
    EXPECT_NEAR(inkOf(painted(list)).width(), 40, 4);
    list->writings = {textAt({50, 50}, TextHorizontal::centre, TextVertical::top)};
    list->writings[0].text = 1;
    const QRect lines = inkOf(painted(list));
    EXPECT_TRUE(near(lines.top(), 50) && near(lines.bottom() + 1, 80) && near(lines.center().x(), 50));
    list->writings[0].along = {0, 10}; // upwards
    list->writings[0].up = {-10, 0};
    const QRect turned = inkOf(painted(list));
    EXPECT_TRUE(near(turned.left(), 50) && near(turned.right() + 1, 80) && near(turned.center().y(), 50));
}

TEST(DrawingScene, extremeViews_endSoonAndPaintWhatIsThere) {
    const auto line = listOfLine({-1e12, 0.5}, {1e12, 0.5});
    line->arcs.push_back({{0, -1e9 + 0.5}, {1e9, 0}, {0, 1e9}, 0, 6.3, {}});
    line->patterns.push_back({1e-9, 1e-9});
    line->lines.push_back({{0, -1e12}, {0.5, 1e12}, {3, 1, 0}});
    line->areas.push_back({{{-1e12, -1e12}, {1e12, -1e12}, {1e12, 0.2}, {-1e12, 0.2}}, {}});
    line->texts = {u"far"};
    line->writings = {textAt({1e11, 1e11}, TextHorizontal::left, TextVertical::top)};
    const QImage image = painted(line, 100);
    EXPECT_LT(QColor(image.pixel(70, 50)).lightness(), 128);
    EXPECT_LT(QColor(image.pixel(70, 90)).lightness(), 128);
    painted(line, 1e-12);
    painted(line, 1e12);
}

TEST(DrawingColours, numbers_areSeenOnEveryCanvas) {
    for (const Look look : {Look::light, Look::dark, Look::highContrast}) {
        const Theme theme = themeFor(look);
        const DrawingColours colours(theme);
        EXPECT_EQ(colours.colour(7), theme.drawing);
        for (std::uint16_t number = 0; number < 300; ++number) {
            EXPECT_GE(contrastOf(colours.colour(number), theme.canvas), 3) << number;
            EXPECT_TRUE(look != Look::highContrast || colours.colour(number) == theme.drawing);
        }
    }
    const DrawingColours light(themeFor(Look::light));
    EXPECT_EQ(light.colour(1), QColor(255, 0, 0));
    EXPECT_EQ(light.colour(5), QColor(0, 0, 255));
    EXPECT_EQ(light.colour(24), QColor(129, 32, 0));
}

TEST(DrawingCanvas, mouseAndKeys_moveZoomAndFit) {
    DrawingCanvas canvas;
    canvas.resize(400, 200);
    canvas.setDrawing(listOfLine({0, 0}, {100, 100}));
    canvas.show();
    const CanvasView fitted = canvas.view();
    EXPECT_DOUBLE_EQ(fitted.scale, 0.96 * 2);
    const auto expectMoved = [&](QPointF by, const char* what) {
        EXPECT_LT((canvas.view().origin - fitted.origin - by).manhattanLength(), 1e-6) << what;
        QTest::keyClick(&canvas, Qt::Key_F);
        EXPECT_EQ(canvas.view().origin, fitted.origin) << what;
    };
    const QPointF pointer(100, 50);
    const PlanePoint under = canvas.view().toDrawing(pointer);
    QWheelEvent wheel(pointer, canvas.mapToGlobal(pointer), {}, {0, 120}, Qt::NoButton, Qt::NoModifier,
        Qt::NoScrollPhase, false);
    QApplication::sendEvent(&canvas, &wheel);
    EXPECT_DOUBLE_EQ(canvas.view().scale, fitted.scale * 1.25);
    EXPECT_LT((canvas.view().toCanvas(under) - pointer).manhattanLength(), 1e-6);
    QTest::mouseDClick(&canvas, Qt::MiddleButton);
    EXPECT_DOUBLE_EQ(canvas.view().scale, fitted.scale);
    QTest::keyClick(&canvas, Qt::Key_Left);
    expectMoved({40, 0}, "left");
    QTest::keyClick(&canvas, Qt::Key_Down);
    expectMoved({0, -20}, "down");
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::MiddleButton}) {
        QTest::mousePress(&canvas, button, {}, {10, 10});
        QTest::mouseMove(&canvas, {30, 25});
        QTest::mouseRelease(&canvas, button, {}, {30, 25});
        QTest::mouseMove(&canvas, {90, 90});
        expectMoved({20, 15}, "dragged");
    }
    QTest::keyClick(&canvas, Qt::Key_Plus);
    QTest::keyClick(&canvas, Qt::Key_Plus);
    QTest::keyClick(&canvas, Qt::Key_Minus);
    EXPECT_DOUBLE_EQ(canvas.view().scale, fitted.scale * 1.25);
    for (int i = 0; i < 200; ++i)
        QTest::keyClick(&canvas, Qt::Key_Plus);
    EXPECT_LE(canvas.view().scale, fitted.scale * 1e5 * 1.001);
    const CanvasView near = canvas.view();
    canvas.replaceDrawing(listOfLine({0, 0}, {50, 50}));
    EXPECT_DOUBLE_EQ(canvas.view().scale, near.scale);
    canvas.fit();
    canvas.resize(400, 400);
    QApplication::processEvents();
    EXPECT_DOUBLE_EQ(canvas.view().scale, 0.96 * 8);
    canvas.setDrawing(std::make_shared<DisplayList>());
    EXPECT_EQ(canvas.accessibleDescription(), QStringLiteral("There is nothing in this drawing."));
    canvas.grab();
}

TEST(PictureView, selection_isReadOnceItRests) {
    ScriptedSource source;
    ViewContext context;
    context.drawings = &source;
    ryv::Picture picture(1);
    PictureView view(picture, context, nullptr);
    for (const char16_t* path : {u"\\a.dwg", u"\\ab.dwg", u"\\abc.dwg"})
        picture.setDrawing(path);
    EXPECT_EQ(source.reads, 0);
    ASSERT_TRUE(QTest::qWaitFor([&] { return view.hasDrawing(); }));
    EXPECT_EQ(source.reads, 1);
    EXPECT_EQ(view.accessibleName(), QStringLiteral("Preview of abc.dwg"));
    picture.setDrawing(u"\\bad.dwg");
    ASSERT_TRUE(QTest::qWaitFor([&] { return view.message() == QStringLiteral("It is bad."); }));
    EXPECT_FALSE(view.hasDrawing());
    picture.setDrawing(u"\\a.dwg");
    picture.setDrawing(u"");
    EXPECT_EQ(view.message(), QStringLiteral("Select a drawing to see it here."));
    QTest::qWait(PictureView::restMilliseconds + 50);
    EXPECT_EQ(source.reads, 2) << "nothing is selected, and nothing is read";
}

TEST(PictureReader, answer_isDroppedWithItsReceiver) {
    std::atomic<int> reads = 0;
    int answers = 0;
    {
        QObject receiver;
        PictureReader reader(std::make_unique<ScriptedReader>(reads), receiver,
            [&](const ryv::CString&, const DrawingReading&) { ++answers; });
        reader.read(u"\\a.dwg");
        while (reads == 0)
            std::this_thread::yield();
    }
    QApplication::processEvents();
    EXPECT_EQ(answers, 0);
}

TEST(FileDrawingSource, files_areReadOrSaidToBeUnreadable) {
    ryv::test::TempFolder folder;
    const PathMapper mapper;
    const auto reader = FileDrawingSource(mapper).makeReader();
    folder.write("good.dwg", drawingText(lineText(7, 5)));
    folder.write("damaged.dwg", drawingText("x\n"));
    folder.write("binary.dwg", std::string("AC1027\0\0\0", 9));
    folder.write("large.dwg", "");
    std::filesystem::resize_file(folder.native("large.dwg"), FileDrawingSource::largestFile + 1);
    const std::vector<std::pair<ryv::CString, ryv::CString>> cases{
        {u"missing.dwg", u"is missing."},
        {u"damaged.dwg", u"line 5: a group code was expected."},
        {u"binary.dwg", u"binary drawing"},
        {u"large.dwg", u"too big to preview (64 MB)."},
        {u"", u"is a folder"},
    };
    for (const auto& [name, problem] : cases) {
        const DrawingReading reading = reader->read(folder.module(name));
        EXPECT_EQ(reading.list, nullptr);
        EXPECT_NE(reading.problem.find(problem), ryv::CString::npos) << toQt(reading.problem).toStdString();
        EXPECT_EQ(reading.problem.find(folder.module()), ryv::CString::npos);
    }
    const DrawingReading first = reader->read(folder.module(u"good.dwg"));
    ASSERT_NE(first.list, nullptr);
    EXPECT_EQ(first.list->extents.most, (PlanePoint{7, 5}));
    EXPECT_EQ(reader->read(folder.module(u"good.dwg")).list, first.list);
    folder.write("good.dwg", drawingText(lineText(70, 5)));
    EXPECT_EQ(reader->read(folder.module(u"good.dwg")).list->extents.most.x, 70);
    for (int i = 0; i < 10; ++i) {
        folder.write(std::to_string(i), drawingText(lineText(i, 1)));
        EXPECT_NE(reader->read(folder.module(ryv::toText(i))).list, nullptr);
    }
    const auto again = reader->read(folder.module(u"9"));
    EXPECT_EQ(reader->read(folder.module(u"9")).list, again.list);
}

} // namespace drafta::test
