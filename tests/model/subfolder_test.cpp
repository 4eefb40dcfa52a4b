#include "tests/support/project_builder.h"

#include <gtest/gtest.h>

namespace ryv::test {
namespace {

TEST(Subfolder, assignment_copiesTheNameAndLosesTheItems) {
    RyvPrmSubfolder source(u"SOURCE");
    source.add(drawing(u"s"));
    RyvPrmSubfolder target(u"TARGET");
    RyvPrmItem& item = target.add(drawing(u"t"));
    target = source;
    EXPECT_EQ(target.getName(), u"SOURCE");
    EXPECT_TRUE(target.getItems().empty());
    EXPECT_EQ(treeText(source.getItems()), "s");
    EXPECT_EQ(asFileDetails(&item)->getFileName(), u"t") << "not destroyed";
    EXPECT_EQ(item.parent(), nullptr);
}

TEST(Subfolder, unparked_belongsToTheCaller) {
    RyvPrmSubfolder subfolder(u"S");
    RyvPrmItem& item = subfolder.add(drawing(u"x"));
    EXPECT_EQ(RyvPrmSubfolder::unpark(item), nullptr) << "not parked";
    subfolder.park(subfolder.take(item));
    EXPECT_EQ(item.parent(), nullptr);
    const std::unique_ptr<RyvPrmItem> mine = RyvPrmSubfolder::unpark(item);
    EXPECT_EQ(mine.get(), &item);
    EXPECT_EQ(RyvPrmSubfolder::unpark(item), nullptr);
}

TEST(Subfolder, positionsOutside_throw) {
    RyvPrmSubfolder subfolder(u"S");
    subfolder.add(drawing(u"x"));
    const RyvPrmFileDetails stranger(u"x");
    EXPECT_THROW(subfolder.insert(2, drawing(u"y")), std::invalid_argument);
    EXPECT_THROW(subfolder.insert(0, nullptr), std::invalid_argument);
    EXPECT_THROW(subfolder.take(1), std::invalid_argument);
    EXPECT_THROW(subfolder.take(stranger), std::invalid_argument);
    EXPECT_THROW(subfolder.getItems()[1], std::invalid_argument);
    EXPECT_EQ(treeText(subfolder.getItems()), "x");
}

// -- Depth comes from outside: nothing may nest as deep as the tree does.

constexpr std::size_t deep = 200'000;

/// `deep` subfolders in one another with a drawing innermost.
void growDeep(RyvPrmProjectData& project, CStringView lastName) {
    RyvPrmSubfolder* level = nullptr;
    for (std::size_t i = 0; i < deep; ++i) {
        RyvPrmSubfolder* next = level;
        ASSERT_TRUE(project.getSubfolderByTrace(u"N", next, true, false));
        level = next;
    }
    level->add(drawing(lastName));
}

TEST(DeepTree, isWalkedSearchedComparedAndDestroyed) {
    RyvPrmProjectData one;
    RyvPrmProjectData two;
    growDeep(one, u"x");
    growDeep(two, u"y");
    EXPECT_FALSE(one == two);
    EXPECT_TRUE(two.replaceFile(u"Y", u"x"));
    EXPECT_TRUE(one == two);
    EXPECT_EQ(drawingNames(one), std::vector<CString>{u"x"});

    CString trace;
    for (std::size_t i = 0; i < deep; ++i)
        trace += u"n/";
    RyvPrmSubfolder* const innermost = one.findSubfolder(trace);
    ASSERT_NE(innermost, nullptr);
    EXPECT_EQ(treeText(innermost->getItems()), "x");
    EXPECT_EQ(one.findSubfolder(trace + u"n"), nullptr);

    EXPECT_TRUE(one.removeFiles({u"x"}));
    EXPECT_TRUE(innermost->getItems().empty());
    EXPECT_TRUE(one.removeSubfolders({CString(u"n/n")})) << "a deep tree kept aside";
    EXPECT_TRUE(two.removeSubfolders({CString(u"n")})) << "a deep tree destroyed";
    EXPECT_EQ(treeText(two), "");
}

TEST(DeepTree, moves_fromProjectToProject) {
    RyvPrmProjectData one;
    RyvPrmProjectData two;
    growDeep(one, u"x");
    std::unique_ptr<RyvPrmItem> top =
        one.getProjFileDetails()[0]->parent()->take(*one.getProjFileDetails()[0]);
    EXPECT_TRUE(two.addFile(std::move(top)));
    EXPECT_FALSE(one.isFileInProject(u"x"));
    EXPECT_TRUE(two.isFileInProject(u"x"));
}

// -- Drawings share their content with their copies until one of them is written to.

TEST(FileDetails, everySetterOnACopy_leavesTheOriginalAlone) {
    using Change = void (*)(RyvPrmFileDetails&);
    const Change changes[] = {[](RyvPrmFileDetails& d) { d.setFileName(u"other"); },
        [](RyvPrmFileDetails& d) { d.setFileId(8); },
        [](RyvPrmFileDetails& d) { d.setDescription1(u"other"); },
        [](RyvPrmFileDetails& d) { d.setDescription2(u"other"); },
        [](RyvPrmFileDetails& d) { d.setDescriptions({}); },
        [](RyvPrmFileDetails& d) { d.addDescription(u"other"); },
        [](RyvPrmFileDetails& d) { d.setReferenceOnly(false); },
        [](RyvPrmFileDetails& d) { d = RyvPrmFileDetails(); }};
    for (const Change change : changes) {
        const RyvPrmFileDetails original = fullDrawing(u"x");
        RyvPrmFileDetails copy = original;
        RyvPrmFileDetails assigned;
        assigned = original;
        EXPECT_EQ(copy, original);
        change(copy);
        EXPECT_FALSE(copy == original);
        EXPECT_EQ(original, fullDrawing(u"x"));
        EXPECT_EQ(assigned, fullDrawing(u"x"));
    }
}

TEST(FileDetails, copy_isInNoTreeAndAssignmentKeepsThePlace) {
    RyvPrmProjectData project;
    RyvPrmFileDetails* const placed = add(project, u"x", u"A");
    const RyvPrmFileDetails copy = *placed;
    EXPECT_EQ(copy.parent(), nullptr);
    *placed = fullDrawing(u"y");
    EXPECT_EQ(placed->parent(), project.findSubfolder(u"A"));
    EXPECT_EQ(project.findFile(u"Y"), placed);
    EXPECT_EQ(project.findFile(u"x"), nullptr);
}

/// A name changed through one of two records that share their content must not reach the other's project.
TEST(FileDetails, sharedByTwoProjects_areRenamedApart) {
    RyvPrmProjectData one;
    RyvPrmProjectData two;
    RyvPrmFileDetails* const first = add(one, u"x");
    two.addFile(std::make_unique<RyvPrmFileDetails>(*first));
    ASSERT_TRUE(two.isFileInProject(u"x"));
    EXPECT_TRUE(one.replaceFile(u"x", u"y"));
    EXPECT_TRUE(two.isFileInProject(u"x"));
    EXPECT_FALSE(two.isFileInProject(u"y"));
    EXPECT_TRUE(one.isFileInProject(u"y"));
}

TEST(Subfolder, assignmentToItself_changesNothing) {
    RyvPrmSubfolder subfolder(u"S");
    subfolder.add(drawing(u"x"));
    RyvPrmSubfolder& same = subfolder;
    subfolder = same;
    EXPECT_EQ(treeText(subfolder.getItems()), "x");
}

} // namespace
} // namespace ryv::test
