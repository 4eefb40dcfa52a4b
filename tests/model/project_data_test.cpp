#include "tests/support/project_builder.h"

#include <gtest/gtest.h>

namespace ryv::test {
namespace {

TEST(ProjectData, addFile_placesByTrace) {
    struct Case {
        const char* name;
        const CString* trace;
        bool placed;
        std::string tree;
    };
    const CString none;
    const CString nested = u"A/b";
    const CString slash = u"/x//Y/";
    const CString noName = u"//";
    const Case cases[] = {{"no trace", nullptr, true, "d"}, {"empty trace", &none, true, "d"},
        {"missing subfolders", &nested, true, "A{B{d}}"}, {"slashes too many", &slash, true, "X{Y{d}}"},
        {"slashes only", &noName, false, ""}};
    for (const Case& each : cases) {
        RyvPrmProjectData project;
        EXPECT_EQ(project.addFile(drawing(u"d"), each.trace), each.placed) << each.name;
        EXPECT_EQ(treeText(project), each.tree) << each.name;
    }
}

TEST(ProjectData, itemsOfNeitherKind_areSkippedByEveryWalk) {
    RyvPrmProjectData project;
    project.addFile(std::make_unique<RyvPrmItem>());
    add(project, u"1");
    EXPECT_EQ(drawingNames(project), std::vector<CString>{u"1"});
    EXPECT_FALSE(project.isFileInProject(u""));
    EXPECT_EQ(project.findSubfolder(u"?"), nullptr);
    EXPECT_TRUE(project.removeFile(u"1"));
    EXPECT_EQ(treeText(project), "?");
}

TEST(ProjectData, replaceFile_renamesTheFirstInItsPlaceAndNothingElse) {
    RyvPrmProjectData project;
    add(project, u"x", u"A");
    project.addFile(std::make_unique<RyvPrmFileDetails>(fullDrawing(u"y")));
    add(project, u"Y");
    EXPECT_TRUE(project.replaceFile(u"Y", u"Z"));
    EXPECT_EQ(treeText(project), "A{x} Z Y");
    EXPECT_EQ(*project.findFile(u"z"), fullDrawing(u"Z"));
    EXPECT_FALSE(project.replaceFile(u"nowhere", u"Q"));
    EXPECT_EQ(treeText(project), "A{x} Z Y");
}

TEST(ProjectData, modifyDetails_assignsAllFields) {
    RyvPrmProjectData project;
    add(project, u"1");
    add(project, u"c:\\p\\m.dwg", u"A");
    const RyvPrmFileDetails details = fullDrawing(u"C:\\P\\M.DWG");
    EXPECT_TRUE(project.modifyDetailsForFile(details));
    EXPECT_EQ(*project.findFile(u"c:\\p\\m.dwg"), details);
    EXPECT_EQ(treeText(project), "1 A{C:\\P\\M.DWG}");
    EXPECT_FALSE(project.modifyDetailsForFile(fullDrawing(u"other")));
    EXPECT_TRUE(project.modifyDetailsForFile(*project.findFile(u"1")));
}

TEST(ProjectData, isFileInProject_tellsTheReferenceFlagOfANestedDrawing) {
    RyvPrmProjectData project;
    add(project, u"plain");
    add(project, u"ref", u"A/B")->setReferenceOnly(true);
    bool flag = false;
    EXPECT_TRUE(project.isFileInProject(u"REF", &flag));
    EXPECT_TRUE(flag);
    EXPECT_TRUE(project.isFileInProject(u"plain", &flag));
    EXPECT_FALSE(flag);
    flag = true;
    EXPECT_FALSE(project.isFileInProject(u"nowhere", &flag));
    EXPECT_TRUE(flag) << "a miss leaves the output alone";
    EXPECT_TRUE(project.isFileInProject(u"ref"));
}

TEST(ProjectData, flatList_isDepthFirstInArrayOrder) {
    RyvPrmProjectData project;
    add(project, u"1");
    add(project, u"2", u"A");
    add(project, u"3", u"A/B");
    add(project, u"4", u"A");
    add(project, u"5");
    CArray<RyvPrmFileDetails*> drawings{nullptr};
    project.generateFlatFileDetailsArray(drawings);
    EXPECT_EQ(drawings.size(), 6u) << "what was in the list stays in front";
    EXPECT_EQ(drawings[3], project.findFile(u"3")) << "the tree's own records";
    EXPECT_EQ(drawingNames(project), (std::vector<CString>{u"1", u"2", u"3", u"4", u"5"}));
}

TEST(ProjectData, getDetailsForFiles_copiesEachNameOnce) {
    RyvPrmProjectData project;
    add(project, u"x", u"A")->setDescription1(u"first");
    add(project, u"X")->setDescription1(u"second");
    add(project, u"y");
    CArray<RyvPrmFileDetails> out;
    EXPECT_TRUE(project.getDetailsForFiles({u"X", u"nowhere"}, out));
    ASSERT_EQ(out.size(), 1u);
    EXPECT_EQ(out[0].getDescription1(), u"first");
    out[0].setDescription1(u"changed");
    EXPECT_EQ(project.findFile(u"x")->getDescription1(), u"first") << "a copy";

    EXPECT_TRUE(project.getDetailsForFiles({u"x", u"x", u"x"}, out));
    EXPECT_EQ(out.size(), 3u) << "appended";
    EXPECT_FALSE(project.getDetailsForFiles({u"nowhere"}, out));
    EXPECT_TRUE(project.getDetailsForFiles({}, out));
    EXPECT_EQ(out.size(), 3u);
}

TEST(ProjectData, getDetailsForSubfolders_givesTheProjectsOwnAndNeverNull) {
    RyvPrmProjectData project;
    RyvPrmSubfolder* const nested = addSubfolder(project, u"A/B");
    CArray<RyvPrmSubfolder*> out{nullptr};
    EXPECT_FALSE(project.getDetailsForSubfolders({u"a/b", u"C", u"", u"A"}, out));
    ASSERT_EQ(out.size(), 2u);
    EXPECT_EQ(out[0], nested);
    EXPECT_EQ(out[1], project.findSubfolder(u"A"));
    EXPECT_TRUE(project.getDetailsForSubfolders({u"A"}, out));
    EXPECT_TRUE(project.getDetailsForSubfolders({}, out));
    EXPECT_TRUE(out.empty());
}

struct TraceCase {
    CString trace;
    bool create;
    bool makeUnique;
    bool found;
    std::string tree;
};

TEST(ProjectData, getSubfolderByTrace_findsOrMakes) {
    const TraceCase cases[] = {{u"a/B", false, false, true, "A{B{}}"}, {u"/A", false, false, true, "A{B{}}"},
        {u"A//B/", false, false, true, "A{B{}}"}, {u"", true, false, false, "A{B{}}"},
        {u"/", true, false, false, "A{B{}}"}, {u"C", false, false, false, "A{B{}}"},
        {u"A/C", false, false, false, "A{B{}}"}, {u"A", false, true, false, "A{B{}}"},
        {u"A/C", true, false, true, "A{B{} C{}}"}, {u"C/d", true, false, true, "A{B{}} C{D{}}"},
        {u"a", true, true, true, "A{B{}} A (1){}"}, {u"A/b", true, true, true, "A{B{} B (1){}}"},
        {u"A/c", true, true, true, "A{B{} C{}}"}};
    for (const TraceCase& each : cases) {
        RyvPrmProjectData project;
        addSubfolder(project, u"A/B");
        RyvPrmSubfolder* found = nullptr;
        EXPECT_EQ(project.getSubfolderByTrace(each.trace, found, each.create, each.makeUnique), each.found)
            << shown(each.trace);
        EXPECT_EQ(found != nullptr, each.found) << shown(each.trace);
        EXPECT_EQ(treeText(project), each.tree) << shown(each.trace);
    }
}

TEST(ProjectData, invalidLookup_leavesTheSubfolderAlone) {
    RyvPrmProjectData project;
    RyvPrmSubfolder* const start = addSubfolder(project, u"A");
    RyvPrmSubfolder* subfolder = start;
    EXPECT_FALSE(project.getSubfolderByTrace(u"", subfolder, true, false));
    EXPECT_EQ(subfolder, start);
    EXPECT_FALSE(project.getSubfolderByTrace(u"A", subfolder, false, true));
    EXPECT_EQ(subfolder, start);
    EXPECT_FALSE(project.getSubfolderByTrace(u"nowhere", subfolder, false, false));
    EXPECT_EQ(subfolder, nullptr);
}

TEST(ProjectData, uniqueSubfolders_areNumberedPastTheNamesTaken) {
    RyvPrmProjectData project;
    addSubfolder(project, u"A");
    addSubfolder(project, u"a (2)");
    for (int i = 0; i < 3; ++i) {
        RyvPrmSubfolder* subfolder = nullptr;
        EXPECT_TRUE(project.getSubfolderByTrace(u"a", subfolder, true, true));
    }
    EXPECT_EQ(treeText(project), "A{} A (2){} A (1){} A (3){} A (4){}");
}

TEST(ProjectData, comparison_respectsCaseAndOrder) {
    using Change = void (*)(RyvPrmProjectData&);
    struct Case {
        const char* name;
        Change change;
    };
    const Case cases[] = {{"description", [](auto& p) { p.setProjDescriptions({u"text"}); }},
        {"description's case",
            [](auto& p) {
                p.setProjDescriptions({u"Text", u"TWO"});
            }},
        {"further drawing", [](auto& p) { add(p, u"new"); }},
        {"name's case", [](auto& p) { p.findFile(u"x")->setFileName(u"X"); }},
        {"identifier", [](auto& p) { p.findFile(u"x")->setFileId(1); }},
        {"first description", [](auto& p) { p.findFile(u"x")->setDescription1(u"D"); }},
        {"second description", [](auto& p) { p.findFile(u"x")->setDescription2(u"D"); }},
        {"description list", [](auto& p) { p.findFile(u"x")->addDescription(u""); }},
        {"reference", [](auto& p) { p.findFile(u"x")->setReferenceOnly(true); }},
        {"subfolder's case", [](auto& p) { p.findSubfolder(u"A")->setName(u"a"); }},
        {"subfolder's items", [](auto& p) { add(p, u"new", u"A"); }},
        {"settings", [](auto& p) { p.setProjDefKQMVals({}); }},
        {"misc settings", [](auto& p) { p.setMiscProjSettings({}); }},
        {"order", [](auto& p) { p.addFile(p.findFile(u"x")->parent()->take(*p.findFile(u"x"))); }}};
    const auto fill = [](RyvPrmProjectData& project) {
        project.setProjDescriptions({u"text", u"two"});
        RyvCfgDrawingSettings settings;
        const CString value = u"v";
        settings.setValue(5, &value);
        project.setProjDefKQMVals(settings);
        RyvPmMiscProjSettings misc;
        misc.setValue(9, &value);
        project.setMiscProjSettings(misc);
        add(project, u"x");
        add(project, u"y", u"A");
    };
    for (const Case& each : cases) {
        RyvPrmProjectData one;
        RyvPrmProjectData two;
        fill(one);
        fill(two);
        EXPECT_TRUE(one == two) << each.name;
        each.change(two);
        EXPECT_FALSE(one == two) << each.name;
        EXPECT_TRUE(one != two) << each.name;
    }
}

TEST(ProjectData, setProjDefKQMVals_clearsWhatTheSourceLacks) {
    RyvPrmProjectData project;
    RyvCfgDrawingSettings settings;
    const CString value = u"v";
    settings.setValue(5, &value);
    settings.setValue(13, &value);
    project.setProjDefKQMVals(settings);
    settings.setValue(5, nullptr);
    project.setProjDefKQMVals(settings);
    EXPECT_TRUE(project.getProjDefKQMVals() == settings);
    EXPECT_EQ(project.getProjDefKQMVals().find(5), nullptr);
}

TEST(ProjectData, swap_exchangesContentAndLookups) {
    RyvPrmProjectData one;
    RyvPrmProjectData two;
    add(one, u"x", u"A");
    one.setProjDescriptions({u"one"});
    ASSERT_TRUE(one.isFileInProject(u"x"));
    ASSERT_FALSE(two.isFileInProject(u"x"));
    one.swap(two);
    EXPECT_FALSE(one.isFileInProject(u"x"));
    EXPECT_TRUE(two.isFileInProject(u"x"));
    EXPECT_EQ(two.getProjDescriptions(), CStringList{u"one"});
    add(two, u"y", u"A");
    add(one, u"z", u"B");
    EXPECT_NE(two.findFile(u"y"), nullptr);
    EXPECT_EQ(treeText(one), "B{z}");
    EXPECT_EQ(treeText(two), "A{x y}");
}

TEST(ProjectData, addFiles_appendsInOrder) {
    RyvPrmProjectData project;
    add(project, u"1");
    RyvPrmItems items;
    items.push_back(drawing(u"2"));
    items.push_back(std::make_unique<RyvPrmSubfolder>(u"S"));
    EXPECT_TRUE(project.addFiles(std::move(items)));
    EXPECT_EQ(treeText(project), "1 2 S{}");
    EXPECT_THROW(project.addFile(nullptr), std::invalid_argument);
}

TEST(ProjectData, subfolderFacingADrawing_isADifference) {
    RyvPrmProjectData one;
    RyvPrmProjectData two;
    add(one, u"A");
    addSubfolder(two, u"A");
    EXPECT_FALSE(one == two);
    EXPECT_FALSE(two == one);
}

} // namespace
} // namespace ryv::test
