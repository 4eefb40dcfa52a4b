// Saving drawings, and who is asked to do it.
#include "tests/embedded/drawings/drawing_fixture.h"

namespace drafta::test {

class DrawingSave : public DrawingFixture {};

TEST_F(DrawingSave, save_unchanged_writesNothing) {
    DrawingView database = view(recorded("panel"));
    folder.write("a.dwg", "somebody else's");
    EXPECT_TRUE(database.save().ok());
    EXPECT_EQ(folder.read("a.dwg"), "somebody else's");
}

TEST_F(DrawingSave, save_afterAnotherProcessWrote_leavesTheFileAlone) {
    DrawingView database = view(recorded("panel"));
    ASSERT_TRUE(database.firstReference(u"KQ_M") && database.writeAttribute(u"SHEET", u"1"));
    folder.write("a.dwg", recorded("plain"));
    const DrawingResult result = database.save();
    EXPECT_FALSE(result.ok());
    EXPECT_NE(result.problem.find(u"a.dwg"), CString::npos) << shown(result.problem);
    EXPECT_EQ(folder.read("a.dwg"), recorded("plain"));
    EXPECT_TRUE(database.drawing()->isModified());
    folder.write("a.dwg", recorded("panel"));
    EXPECT_TRUE(database.save().ok());
    EXPECT_FALSE(database.drawing()->isModified());
    EXPECT_TRUE(database.writeAttribute(u"SHEET", u"2") && database.save().ok())
        << "our own writing is no stranger's";
}

TEST_F(DrawingSave, saveAs_movesTheDrawingToTheNewFile) {
    const auto drawing = load(recorded("panel"));
    EXPECT_FALSE(drawing->saveAs(folder.module(u"none\\b.dwg")).ok());
    EXPECT_EQ(drawing->path(), folder.module(u"a.dwg"));
    EXPECT_TRUE(drawing->saveAs(folder.module(u"b.dwg")).ok());
    EXPECT_EQ(folder.read("b.dwg"), recorded("panel"));
    DrawingView database(drawing);
    EXPECT_EQ(database.fileName(), folder.module(u"b.dwg"));
    ASSERT_TRUE(database.firstReference(u"KQ_M") && database.writeAttribute(u"SHEET", u"1"));
    EXPECT_TRUE(database.save().ok());
    EXPECT_NE(folder.read("b.dwg"), recorded("panel"));
    EXPECT_EQ(folder.read("a.dwg"), recorded("panel"));
}

TEST_F(DrawingSave, save_ofADocument_goesThroughItsHook) {
    const auto drawing = load(recorded("panel"));
    DrawingView database(drawing);
    int calls = 0;
    drawing->setSaveHook([&] {
        drawing->setSaveHook({}); // a hook may take itself off
        ++calls;
        return DrawingResult{false, u"not now"};
    });
    EXPECT_EQ(database.save().problem, u"not now");
    EXPECT_TRUE(database.save().ok());
    EXPECT_EQ(calls, 1);
}

TEST_F(DrawingSave, view_ofAClosedDrawing_hasNothing) {
    const auto drawing = load(recorded("panel"));
    DrawingView database(drawing);
    ASSERT_TRUE(database.firstReference(u"KQ_M"));
    drawing->close();
    CString value = u"as it was";
    EXPECT_FALSE(database.hasOpenReference() || database.firstReference(u"KQ_M") || database.nextReference());
    EXPECT_FALSE(database.setSpace(u"*Model_Space") || database.readAttribute(u"SHEET", value));
    EXPECT_FALSE(database.writeAttribute(u"SHEET", u"1") || database.addAttribute(u"SHEET", u"X", u"", {}));
    EXPECT_EQ(database.layoutCount() + database.referredBlocks().size() + database.attributes().size(), 0u);
    EXPECT_FALSE(database.insertBlock({u"KQ_M", {}, {}}).ok() || database.save().ok());
    EXPECT_EQ(value, u"as it was");
}

TEST_F(DrawingSave, blank_canBeFilledAndSavedUnderAName) {
    folder.write("KQ_M.dwg", settingsBlock());
    const auto drawing = Drawing::blank(files);
    DrawingView database(drawing);
    EXPECT_EQ(database.fileName(), u"");
    EXPECT_FALSE(drawing->isModified());
    ASSERT_TRUE(database.insertBlock({u"KQ_M", folder.module(u"KQ_M.dwg"), {}}).ok());
    EXPECT_FALSE(database.save().ok()) << "it has no name";
    ASSERT_TRUE(drawing->saveAs(folder.module(u"new.dwg")).ok());
    const auto report = saved(database, "new.dwg");
    EXPECT_EQ(linesOf(report, "attrib").size(), 77u);
}

} // namespace drafta::test
