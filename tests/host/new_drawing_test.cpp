// A new drawing in the tree, once it is in its project.
#include "host/commands.h"
#include "host/palette.h"
#include "manager/pending_new_drawing.h"
#include "tests/host/nav_fixture.h"
#include "tests/support/told_messages.h"
#include "toolkit/dialog_script.h"

namespace ryv::test {
namespace {

class NewDrawingInTree : public NavFixture {
protected:
    NewDrawingInTree() {
        for (const char16_t* const name : {u"a", u"s", u"t"})
            files.put(u"C:\\P\\" + CString(name) + u".dwg", "drawing");
        files.put(id, "a.dwg\n=====SUB=S\ns.dwg\n=====SUB=S/T\nt.dwg\n");
        start();
        EXPECT_TRUE(nav->projectManager()->openProject(id, true));
    }

    CProjectTree& tree() { return nav->firstPalette()->tree(); }

    /// What the first half of the command leaves behind, with the drawing open.
    void prepare(CStringView drawing, CStringView trace) {
        files.put(drawing, "drawing");
        nav->newDrawing = std::make_unique<PendingNewDrawing>(id, CString(trace));
        nav->newDrawing->details->setFileName(drawing);
        openDocument(drawing);
    }
    /// The rows that are selected, each behind those that it lies in: "A/S/n.dwg"; "(hidden)" behind one in a
    /// row that is collapsed.
    std::string selected() {
        std::string text;
        for (const TreeItem* const row : tree().selection()) {
            std::string path = toUtf8(row->label());
            bool isHidden = !row->shown();
            for (const TreeItem* above = row->parent(); above; above = above->parent()) {
                path = toUtf8(above->label()) + "/" + path;
                isHidden = isHidden || !above->expanded();
            }
            text += (text.empty() ? "" : ", ") + path + (isHidden ? " (hidden)" : "");
        }
        return text;
    }

    const CString id = u"C:\\P\\A.kqp";
};

TEST_F(NewDrawingInTree, rowIsSelectedAndShown_whateverWasCollapsedOrFilteredAway) {
    const struct {
        const char16_t* drawing;
        const char16_t* trace;
        const char* row;
        const char16_t* filter = u"";
    } cases[] = {{u"C:\\P\\n1.dwg", u"", "A/n1.dwg"}, {u"C:\\P\\n2.dwg", u"S", "A/S/n2.dwg"},
        {u"C:\\P\\n3.dwg", u"S/T", "A/S/T/n3.dwg"}, {u"C:\\P\\n4.dwg", u"S/T", "A/S/T/n4.dwg", u"a.dwg"}};
    for (const auto& each : cases) {
        TreeItem& project = *tree().GetProjectItem(id);
        tree().setSelection({&project});
        tree().setFilter(each.filter);
        for (TreeItem* row = project.firstChild(); row; row = row->next())
            tree().expand(*row, false);
        tree().expand(project, false);
        prepare(each.drawing, each.trace);
        commands::continueNewDrawing();
        EXPECT_EQ(selected(), each.row);
        EXPECT_EQ(takeMessages(surroundings.ui), "");
    }
}

TEST_F(NewDrawingInTree, newProject_isSelectedToo) {
    tree().setFilter(u"a.dwg");
    surroundings.ui.answerDialog([](Dialog& dialog) {
        dialog.begin();
        EXPECT_TRUE(runDialogScript(dialog, u"name=n; folder=C:\\P; settings=C:\\P\\A.kqp; ok").ok());
        return dialog.result();
    });
    commands::newProject();
    EXPECT_EQ(selected(), "N");
}

} // namespace
} // namespace ryv::test
