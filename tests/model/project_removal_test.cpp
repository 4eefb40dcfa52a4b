// Taking drawings and subfolders out of a project: what is destroyed, and what stays alive.
#include "tests/support/project_builder.h"

#include <gtest/gtest.h>

namespace ryv::test {
namespace {

/// Counts the living, to see what an operation destroys.
class Counted final : public RyvPrmFileDetails {
public:
    Counted(CString name, int& alive) : RyvPrmFileDetails(std::move(name)), alive_(alive) { ++alive_; }
    ~Counted() override { --alive_; }

private:
    int& alive_;
};

class ProjectRemoval : public ::testing::Test {
protected:
    RyvPrmItem* addCounted(const CString& name, const CString& trace = {}) {
        auto item = std::make_unique<Counted>(name, alive);
        RyvPrmItem* const placed = item.get();
        EXPECT_TRUE(project->addFile(std::move(item), &trace));
        return placed;
    }

    int alive = 0;
    std::unique_ptr<RyvPrmProjectData> project = std::make_unique<RyvPrmProjectData>();
};

TEST_F(ProjectRemoval, removeFile_destroysTheFirstDepthFirst) {
    EXPECT_FALSE(project->isFileInProject(u"x")); // from here on look-ups have to keep up
    addCounted(u"y");
    addCounted(u"x", u"A/B");
    addCounted(u"X");
    EXPECT_TRUE(project->removeFile(u"X"));
    EXPECT_EQ(treeText(*project), "y A{B{}} X");
    EXPECT_EQ(alive, 2);
    EXPECT_TRUE(project->removeFile(u"x"));
    EXPECT_FALSE(project->removeFile(u"x"));
    EXPECT_EQ(treeText(*project), "y A{B{}}");
}

TEST_F(ProjectRemoval, removeFiles_takesOneForEachNameAndKeepsTheRecords) {
    addCounted(u"x", u"A");
    RyvPrmItem* const second = addCounted(u"X");
    addCounted(u"x");
    addCounted(u"y");
    EXPECT_TRUE(project->removeFiles({u"x", u"X", u"nowhere"}));
    EXPECT_EQ(treeText(*project), "A{} x y");
    EXPECT_EQ(alive, 4);
    EXPECT_EQ(asFileDetails(second)->getFileName(), u"X") << "still there to be looked at";
    EXPECT_EQ(second->parent(), nullptr);
    project.reset();
    EXPECT_EQ(alive, 0);
}

TEST_F(ProjectRemoval, removeSubfolders_keepsANestedOneAside) {
    RyvPrmItem* const inside = addCounted(u"x", u"A/B/C");
    RyvPrmSubfolder* const nested = project->findSubfolder(u"A/B");
    EXPECT_TRUE(project->removeSubfolders({u"A/b"}));
    EXPECT_EQ(treeText(*project), "A{}");
    EXPECT_EQ(alive, 1);
    EXPECT_EQ(treeText(nested->getItems()), "C{x}");
    EXPECT_EQ(asFileDetails(inside)->getFileName(), u"x");
    EXPECT_FALSE(project->isFileInProject(u"x"));
    EXPECT_EQ(project->findSubfolder(u"A/B"), nullptr);
    project.reset();
    EXPECT_EQ(alive, 0);
}

/// Whoever holds an unlinked subfolder may go on working with it.
TEST_F(ProjectRemoval, unlinkedSubfolder_isStillSearchedAndFilled) {
    addCounted(u"x", u"A/B/C");
    ASSERT_NE(project->findSubfolder(u"A/B/C"), nullptr);
    RyvPrmSubfolder* const nested = project->findSubfolder(u"A/B");
    RyvPrmSubfolder* const inner = project->findSubfolder(u"A/B/C");
    ASSERT_TRUE(project->removeSubfolders({u"A/B"}));
    ASSERT_EQ(project->findSubfolder(u"A/B"), nullptr);
    RyvPrmSubfolder* found = nested;
    EXPECT_TRUE(project->getSubfolderByTrace(u"c", found, false, false));
    EXPECT_EQ(found, inner);
    found = nested;
    EXPECT_TRUE(project->getSubfolderByTrace(u"C/D", found, true, false));
    EXPECT_EQ(treeText(nested->getItems()), "C{x D{}}");
    EXPECT_EQ(treeText(*project), "A{}");
}

TEST_F(ProjectRemoval, removeSubfolders_goesFromTheLastTraceToTheFirst) {
    struct Case {
        CStringArray traces;
        bool all;
        std::string left;
    };
    const Case cases[] = {{{u"A", u"A/B"}, true, "D{}"}, {{u"A/B", u"A"}, false, "D{}"},
        {{u"nowhere", u"D"}, false, "A{B{} C{}}"}, {{u"A/nowhere"}, false, "A{B{} C{}} D{}"},
        {{u"nowhere/B"}, false, "A{B{} C{}} D{}"}, {{u""}, false, "A{B{} C{}} D{}"},
        {{u"A/"}, false, "A{B{} C{}} D{}"}, {{}, true, "A{B{} C{}} D{}"},
        {{u"/A/B", u"a/c"}, true, "A{} D{}"}};
    for (const Case& each : cases) {
        RyvPrmProjectData fresh;
        addSubfolder(fresh, u"A/B");
        addSubfolder(fresh, u"A/C");
        addSubfolder(fresh, u"D");
        EXPECT_EQ(fresh.removeSubfolders(each.traces), each.all) << each.left;
        EXPECT_EQ(treeText(fresh), each.left);
    }
}

TEST_F(ProjectRemoval, setProjFileDetails_movesItsOwnItems) {
    RyvPrmItem* const one = addCounted(u"1");
    RyvPrmItem* const nested = addCounted(u"2", u"A/B");
    RyvPrmItem* const unlinked = addCounted(u"3");
    RyvPrmItem* const inUnlinked = addCounted(u"4", u"A/C");
    addCounted(u"gone", u"A");
    ASSERT_TRUE(project->removeFiles({u"3"}));
    ASSERT_TRUE(project->removeSubfolders({u"A/C"}));
    RyvPrmItem* const subfolder = project->findSubfolder(u"A/B");
    project->setProjFileDetails({inUnlinked, unlinked, nested, one, nested, subfolder});
    EXPECT_EQ(treeText(*project), "4 3 2 1 B{}");
    EXPECT_EQ(alive, 4);
    project.reset();
    EXPECT_EQ(alive, 0);
}

/// What the lossy assignment of a subfolder unlinks is alive in that subfolder, wherever this stands.
TEST_F(ProjectRemoval, setProjFileDetails_movesWhatAnAssignmentUnlinked) {
    RyvPrmItem* const unlinked = addCounted(u"x", u"A/B");
    RyvPrmItem* const nestedUnlinked = addCounted(u"y", u"C/D");
    *project->findSubfolder(u"A/B") = RyvPrmSubfolder(u"E");
    *project->findSubfolder(u"C") = RyvPrmSubfolder(u"C");
    project->setProjFileDetails({unlinked, nestedUnlinked});
    EXPECT_EQ(treeText(*project), "x y");
    EXPECT_EQ(alive, 2);
    project.reset();
    EXPECT_EQ(alive, 0);
}

TEST_F(ProjectRemoval, setProjFileDetails_takesItemsFromAnotherProject) {
    RyvPrmItem* const item = addCounted(u"x", u"A");
    RyvPrmProjectData other;
    other.setProjFileDetails({item});
    EXPECT_EQ(treeText(other), "x");
    EXPECT_EQ(treeText(*project), "A{}");
    EXPECT_FALSE(project->isFileInProject(u"x"));
    EXPECT_TRUE(other.isFileInProject(u"x"));
}

TEST_F(ProjectRemoval, removeAllFiles_destroysTheTree) {
    addCounted(u"x", u"A/B");
    addCounted(u"y");
    EXPECT_TRUE(project->removeAllFiles());
    EXPECT_EQ(alive, 0);
    EXPECT_EQ(treeText(*project), "");
    EXPECT_FALSE(project->isFileInProject(u"y"));
    EXPECT_EQ(project->findSubfolder(u"A"), nullptr);
}

} // namespace
} // namespace ryv::test
