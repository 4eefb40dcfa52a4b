// The view of a document's drawing keeps up with what commands and LISP change in it.
#include "embedded/documents/host.h"
#include "embedded/drawings/drawing_view.h"
#include "embedded/qt/drawing/document_view.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

namespace drafta::test {

namespace {

constexpr const char* blockFile = "0\nSECTION\n2\nENTITIES\n0\nLINE\n8\n0\n10\n0\n20\n0\n11\n5\n21\n5\n"
                                  "0\nENDSEC\n0\nEOF\n";

class DocumentViewTest : public ::testing::Test {
protected:
    DocumentViewTest() {
        folder.write("block.dwg", blockFile);
        ryv::DrawingResult result;
        document = host.documents().make(u"", result);
    }

    void insertLine(double x) {
        DrawingView drawing(host.documents().find(document)->drawing);
        const ryv::DrawingResult result =
            drawing.insertBlock({u"B", folder.module(u"block.dwg"), {x, 0, 0}, {1, 1, 1}, 0});
        ASSERT_TRUE(result.ok());
    }

    /// The zoom tells how much there is to be seen.
    static double shownWidth(const DrawingCanvas& view) { return 0.96 * view.width() / view.view().scale; }

    ryv::test::TempFolder folder;
    Host host{{folder.native("profile"), folder.native("product"), [](std::string_view) {},
        [](std::string_view) {}, nullptr}};
    ryv::DocumentId document = ryv::DocumentId::none;
};

} // namespace

TEST_F(DocumentViewTest, change_isDrawnWhenTheCommandsRest) {
    const std::unique_ptr<QWidget> widget(makeDocumentView(host.documents(), document, nullptr));
    auto& view = dynamic_cast<DocumentView&>(*widget);
    view.resize(100, 1000);
    view.show();
    EXPECT_EQ(view.accessibleName(), QStringLiteral("Drawing Drawing1.dwg"));
    const QString empty = QStringLiteral("There is nothing in this drawing.");
    EXPECT_EQ(view.accessibleDescription(), empty);
    insertLine(0);
    host.runLine(u"(+ 1 2)");
    EXPECT_NE(view.accessibleDescription(), empty);
    EXPECT_NEAR(shownWidth(view), 5, 1e-6);
    view.hide();
    insertLine(10);
    refreshDocumentView(*widget);
    EXPECT_NEAR(shownWidth(view), 5, 1e-6) << "nobody looks";
    view.show();
    EXPECT_NEAR(shownWidth(view), 15, 1e-6);
    view.zoom({50, 500}, 3);
    insertLine(20);
    refreshDocumentView(*widget);
    EXPECT_NEAR(shownWidth(view), 5, 1e-6) << "the user's own view stays";
    view.fit();
    EXPECT_NEAR(shownWidth(view), 25, 1e-6);
}

TEST_F(DocumentViewTest, closedDocument_leavesTheViewEmpty) {
    const std::unique_ptr<QWidget> widget(makeDocumentView(host.documents(), document, nullptr));
    auto& view = dynamic_cast<DocumentView&>(*widget);
    insertLine(0);
    view.show();
    EXPECT_TRUE(view.hasDrawing());
    ASSERT_TRUE(host.documents().close(document));
    refreshDocumentView(*widget);
    EXPECT_FALSE(view.hasDrawing());
    view.grab();
    QWidget other;
    refreshDocumentView(other);
}

} // namespace drafta::test
