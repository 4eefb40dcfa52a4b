// Projects to files and back. What the format itself does not keep stands at the end, each with what it
// becomes.
#include "tests/model/generated_project.h"
#include "tests/support/project_fixture.h"

namespace ryv::test {
namespace {

constexpr std::uint64_t seed = 20'240'117;
constexpr int count = 10'000;

class RoundTrip : public ProjectFixture {
protected:
    /// Another project folder each time: below a drive, at its root, without drives, on a share.
    void choosePath(Random& chance) {
        path = CString(chance.pick({u"C:\\P\\a.kqp", u"C:\\Jobs\\24-0117 \u00C4\\Plans\\a.kqp", u"C:\\a.kqp",
            u"\\home\\u\\a.kqp", u"\\\\server\\share\\p\\a.kqp"}));
    }
    CString folder() const { return path.substr(0, path.rfind(u'\\')); }

    /// A file in which the filer finds this encoding.
    void beginFile(TextEncoding encoding) { files.put(path, encodedFile(u"*[1]\u00E9\n", encoding)); }

    std::string treeAfter(RyvPrmProjectData& project) {
        RyvPrmProjectData again;
        read(write(project), again);
        return treeText(again);
    }
};

TEST_F(RoundTrip, projectWrittenAndRead_isEqualAndWritesTheSameBytes) {
    Random chance(seed);
    for (int number = 0; number < count; ++number) {
        SCOPED_TRACE(number);
        choosePath(chance);
        beginFile(randomEncoding(chance));
        RyvPrmProjectData project;
        fillProject(chance, folder(), project);
        const std::string first = write(project);
        RyvPrmProjectData again;
        read(first, again);
        ASSERT_TRUE(again == project) << treeText(project) << "\nis read as\n" << treeText(again);
        ASSERT_EQ(write(again), first);
    }
    EXPECT_EQ(recorder.count(ProjectFinding::lineBreakInText), 0u);
    EXPECT_EQ(recorder.count(ProjectFinding::unknownAttribute), 0u);
    EXPECT_EQ(recorder.count(ProjectFinding::attributesWithoutDrawing), 0u);
}

TEST_F(RoundTrip, fileReadAndWritten_readsEqual) {
    Random chance(seed + 1);
    for (int number = 0; number < count; ++number) {
        SCOPED_TRACE(number);
        choosePath(chance);
        const std::string bytes = encodedFile(randomFile(chance), randomEncoding(chance));
        RyvPrmProjectData project;
        read(bytes, project);
        const std::string second = write(project);
        RyvPrmProjectData again;
        read(second, again);
        // A list that ends in empty lines is shorter afterwards.
        CStringList descriptions = project.getProjDescriptions();
        while (!descriptions.empty() && descriptions.back().empty())
            descriptions.pop_back();
        project.setProjDescriptions(descriptions);
        ASSERT_TRUE(again == project) << bytes << "\nbecomes\n" << second;
        ASSERT_EQ(write(again), second) << bytes;
    }
}

// -- What the format does not keep.

TEST_F(RoundTrip, descriptionFarBehindTheOthers_isReportedAsGone) {
    RyvPrmProjectData project;
    CStringList descriptions(70'000);
    descriptions[65'535] = u"last that is read";
    descriptions[69'999] = u"x";
    project.setProjDescriptions(descriptions);
    RyvPrmProjectData again;
    read(write(project), again);
    EXPECT_EQ(again.getProjDescriptions().size(), 65'536u);
    EXPECT_EQ(recorder.findings, (std::vector<Finding>{{2, ProjectFinding::indexOutOfRange, u"*[70000]x"}}));
}

TEST_F(RoundTrip, textsThatBeginWithEqualsSigns_loseThem) {
    RyvPrmProjectData project;
    RyvPrmFileDetails* const details = add(project, u"C:\\P\\x");
    details->setDescription2(u"==two=");
    details->setDescriptions({u"=three", u"=REF", u"==SUB=A"});
    RyvPrmProjectData again;
    read(write(project), again);
    const RyvPrmFileDetails& drawing = *again.findFile(u"C:\\P\\x");
    EXPECT_EQ(drawing.getDescription2(), u"") << "read as one line of the list";
    EXPECT_EQ(linesOf(drawing), (CStringList{u"two=", u"three"}));
    EXPECT_TRUE(drawing.isReferenceOnly());
    EXPECT_EQ(drawing.parent(), again.findSubfolder(u"A"));
}

TEST_F(RoundTrip, settingsOfOneDrawing_areTheDefaultsAgain) {
    RyvCfgDrawingSettings settings;
    settings.fillWithDefaults(nullptr, false);
    const CString sheet = u"12";
    settings.setValue(13, &sheet);
    settings.setValue(46, &sheet);
    settings.setValue(51, &sheet);
    settings.setValue(5, nullptr);
    RyvPrmProjectData project;
    project.setProjDefKQMVals(settings);
    RyvPrmProjectData again;
    read(write(project), again);
    EXPECT_EQ(*again.getProjDefKQMVals().find(13), u"");
    EXPECT_EQ(*again.getProjDefKQMVals().find(46), u"");
    EXPECT_EQ(*again.getProjDefKQMVals().find(51), u"12");
    EXPECT_EQ(*again.getProjDefKQMVals().find(5), u"%F%N") << "an absent one has its default again";
}

TEST_F(RoundTrip, pathsOfAnotherSpelling_comeBackInTheirPlainForm) {
    const std::pair<CString, std::string> cases[] = {{u"C:\\P\\x.dwg ", "C:\\P\\x.dwg"},
        {u"C:\\P\\a/b.dwg", "C:\\P\\a\\b.dwg"}, {u"c:\\p\\X.dwg", "C:\\P\\X.dwg"}, {u"x.dwg", "C:\\P\\x.dwg"},
        {u"..\\x.dwg", "C:\\x.dwg"}, {u"C:\\P\\x\ny", "C:\\P\\x y"}};
    for (const auto& [name, expected] : cases) {
        RyvPrmProjectData project;
        add(project, name);
        EXPECT_EQ(treeAfter(project), expected) << shown(name);
    }
}

/// An absolute path that relative writing would change is written whole.
TEST_F(RoundTrip, absolutePathsWithDotsOrDoubledSeparators_areKept) {
    for (const CString name : {u"C:\\P\\a\\..\\x", u"C:\\a\\.\\x", u"C:\\P\\", u"C:\\P\\.\\x", u"C:\\P\\\\x",
             u"C:\\P\\..", u"C:\\..\\x", u"C:\\P\\D:x", u"C:\\P\\D:\\x"}) {
        RyvPrmProjectData project;
        add(project, name);
        EXPECT_EQ(treeAfter(project), toUtf8(name)) << shown(name);
    }
}

TEST_F(RoundTrip, subfolderNamesThatATraceCannotHold_becomeOthers) {
    const std::pair<CString, std::string> cases[] = {{u"a", "A{C:\\P\\x}"}, {u"A/B", "A{B{C:\\P\\x}}"},
        {u"=A", "A{C:\\P\\x}"}, {u" A ", "A {C:\\P\\x}"}, {u"", "C:\\P\\x"}, {u"/", "C:\\P\\x"},
        {u"=", "C:\\P\\x"}, {u"[Empty]", "[EMPTY]{C:\\P\\x}"}, {u"A\nB", "A B{C:\\P\\x}"},
        {u"SUB=", "SUB={C:\\P\\x}"}};
    for (const auto& [name, expected] : cases) {
        RyvPrmProjectData project;
        auto subfolder = std::make_unique<RyvPrmSubfolder>(name);
        subfolder->add(drawing(u"C:\\P\\x"));
        project.addFile(std::move(subfolder));
        EXPECT_EQ(treeAfter(project), expected) << shown(name);
    }
}

TEST_F(RoundTrip, equalSubfolders_becomeOne) {
    RyvPrmProjectData project;
    for (const char16_t* const name : {u"C:\\P\\x", u"C:\\P\\y"}) {
        auto subfolder = std::make_unique<RyvPrmSubfolder>(u"A");
        subfolder->add(drawing(name));
        project.addFile(std::move(subfolder));
    }
    EXPECT_EQ(treeAfter(project), "A{C:\\P\\x C:\\P\\y}");
}

} // namespace
} // namespace ryv::test
