#include "tests/support/fault_files.h"
#include "tests/support/project_fixture.h"

namespace ryv::test {
namespace {

class Writer : public ProjectFixture {
protected:
    std::string written(const RyvPrmProjectData& project, bool relativePaths = true) {
        files.erase(path);
        return write(project, relativePaths);
    }
    /// The bytes for a project of one drawing.
    std::string writtenPath(const CString& name, bool relativePaths = true) {
        RyvPrmProjectData project;
        add(project, name);
        return written(project, relativePaths);
    }
    void set(RyvPrmProjectData& project, std::initializer_list<std::pair<int, CString>> misc,
        std::initializer_list<std::pair<int, CString>> settings) {
        RyvPmMiscProjSettings miscSettings;
        for (const auto& [index, value] : misc)
            miscSettings.setValue(index, &value);
        project.setMiscProjSettings(miscSettings);
        RyvCfgDrawingSettings drawingSettings;
        for (const auto& [index, value] : settings)
            drawingSettings.setValue(index, &value);
        project.setProjDefKQMVals(drawingSettings);
    }
};

TEST_F(Writer, wholeProject_isWrittenInOrder) {
    RyvPrmProjectData project;
    project.setProjDescriptions({u"A", u"", u"C", u""});
    set(project, {{1, u"one"}, {4, u""}, {255, u"last"}},
        {{0, u"V"}, {13, u"no"}, {46, u"no"}, {63, u" x"}, {76, u""}});
    project.addFile(std::make_unique<RyvPrmFileDetails>(fullDrawing(u"C:\\P\\sub\\x.dwg")));
    const CString trace = u"Power/Motors";
    project.addFile(std::make_unique<RyvPrmFileDetails>(fullDrawing(u"D:\\y.dwg")), &trace);
    add(project, u"C:\\P\\z.dwg", u"Power");
    addSubfolder(project, u"Power/None");
    add(project, u"C:\\top.dwg");
    addSubfolder(project, u"End");
    EXPECT_EQ(written(project),
        "*[1]A\n*[3]C\n+[1]one\n+[4]\n+[255]last\n?[0]V\n?[63] x\n?[76]\n"
        "=one\n==two\n===three\n===four\n====REF\nsub\\x.dwg\n"
        "=one\n==two\n===three\n===four\n====REF\n=====SUB=POWER/MOTORS\nD:\\y.dwg\n"
        "=====SUB=POWER\nz.dwg\n=====SUB=POWER/NONE[Empty]\n..\\top.dwg\n=====SUB=END[Empty]\n");
}

TEST_F(Writer, whatHasNoLine_isLeftOut) {
    RyvPrmProjectData project;
    RyvPrmFileDetails nameless = fullDrawing(u"");
    project.addFile(std::make_unique<RyvPrmFileDetails>(nameless));
    project.addFile(std::make_unique<RyvPrmItem>());
    const CString trace = u"A";
    project.addFile(std::make_unique<RyvPrmFileDetails>(nameless), &trace);
    EXPECT_EQ(written(project), "\n");
}

struct PathCase {
    CString name;
    std::string relative;
    std::string absolute;
};

TEST_F(Writer, paths_areRelativeOrInUpperCase) {
    const CString longTail(250, u'x');
    const CString longName = u"C:\\P\\q\\" + longTail;
    const PathCase cases[] = {{u"C:\\P\\sub\\x.dwg", "sub\\x.dwg", "C:\\P\\SUB\\X.DWG"},
        {u"C:\\P\\x.dwg", "x.dwg", "C:\\P\\X.DWG"}, {u"c:\\p\\x.dwg", "x.dwg", "C:\\P\\X.DWG"},
        {u"C:\\x.dwg", "..\\x.dwg", "C:\\X.DWG"}, {u"C:\\PQ\\x.dwg", "..\\PQ\\x.dwg", "C:\\PQ\\X.DWG"},
        {u"D:\\P\\x.dwg", "D:\\P\\x.dwg", "D:\\P\\X.DWG"},
        {u"\\\\s\\h\\x.dwg", "\\\\s\\h\\x.dwg", "\\\\S\\H\\X.DWG"}, {u"\\x.dwg", "\\x.dwg", "\\X.DWG"},
        {u"sub\\x.dwg", "C:\\P\\sub\\x.dwg", "C:\\P\\SUB\\X.DWG"}, {u"C:x.dwg", "C:x.dwg", "C:X.DWG"},
        {u"C:\\P\\D:x.dwg", "C:\\P\\D:x.dwg", "C:\\P\\D:X.DWG"},
        {u"C:\\P\\\\x.dwg", "C:\\P\\\\x.dwg", "C:\\P\\\\X.DWG"},
        {u"C:\\P\\q\\" + CString(252, u'x'), "q\\" + std::string(252, 'x'),
            "C:\\P\\Q\\" + std::string(252, 'X')},
        {u"C:\\P\\q\\" + CString(253, u'x'), "C:\\P\\q\\" + std::string(253, 'x'),
            "C:\\P\\Q\\" + std::string(253, 'X')},
        {CString(300, u'x'), std::string(300, 'x'), std::string(300, 'X')}};
    for (const PathCase& each : cases) {
        EXPECT_EQ(writtenPath(each.name), each.relative + "\n") << shown(each.name);
        EXPECT_EQ(writtenPath(each.name, false), each.absolute + "\n") << shown(each.name);
    }
}

TEST_F(Writer, pathsThatReadAsAnotherKindOfLine_areQuoted) {
    const std::pair<CString, std::string> cases[] = {{u"=odd.dwg", "\"=odd.dwg"}, {u"\"x.dwg", "\"\"x.dwg"},
        {u" x.dwg", "\" x.dwg"}, {u"\u00A0x", "\"\u00A0x"}, {u"*[1]x", "\"*[1]x"}, {u"+[x", "\"+[x"},
        {u"?[0]", "\"?[0]"}, {u"*x", "*x"}, {u"[1]x", "[1]x"}, {u"![1]x", "![1]x"}, {u"x=[1]", "x=[1]"},
        {u"*", "*"}};
    for (const auto& [name, line] : cases)
        EXPECT_EQ(writtenPath(u"C:\\P\\" + name), line + "\n") << shown(name);
}

TEST_F(Writer, lineBreaksInTexts_becomeBlanksAndAreReported) {
    RyvPrmProjectData project;
    project.setProjDescriptions({u"a\nb"});
    set(project, {{9, u"a\r\nb"}}, {{5, u"\n"}});
    RyvPrmFileDetails* const details = add(project, u"C:\\P\\x\ny", u"S\nT");
    details->setDescription1(u"=\n*[1]z");
    details->setDescriptions({u"\r"});
    EXPECT_EQ(written(project), "*[1]a b\n+[9]a  b\n?[5] \n== *[1]z\n=== \n=====SUB=S T\nx y\n");
    EXPECT_EQ(recorder.count(ProjectFinding::lineBreakInText), 7u);
    EXPECT_EQ(recorder.findings.front(), (Finding{1, ProjectFinding::lineBreakInText, u"*[1]a\nb"}));
    EXPECT_EQ(recorder.findings.back().line, 7u);
}

TEST_F(Writer, withoutAnOpenFile_isError2) {
    RyvPrmKQPFiler filer(true);
    EXPECT_FALSE(filer.writeProject(RyvPrmProjectData()));
    EXPECT_EQ(filer.getLastError(), 2);
    EXPECT_FALSE(filer.writeProjectEx(RyvPrmProjectData()));
    EXPECT_EQ(filer.getLastError(), 2);
}

TEST_F(Writer, openForReadingOnly_isError4) {
    files.put(path, "x.dwg\n");
    RyvPrmKQPFiler filer(path, false, true);
    EXPECT_FALSE(filer.writeProject(RyvPrmProjectData()));
    EXPECT_EQ(filer.getLastError(), 4);
    filer.closeProject();
    EXPECT_FALSE(filer.writeProject(RyvPrmProjectData()));
    EXPECT_EQ(filer.getLastError(), 2);
    EXPECT_EQ(files.get(path), "x.dwg\n");
}

TEST_F(Writer, subfolderNames_areWrittenInUpperCase) {
    RyvPrmProjectData project;
    addSubfolder(project, u"a")->setName(u"stra\u00DFe \u00E4");
    project.findSubfolder(u"STRA\u00DFE \u00C4")->add(drawing(u"C:\\P\\x"));
    EXPECT_EQ(written(project), "=====SUB=STRA\u00DFE \u00C4\nx\n");
}

} // namespace
} // namespace ryv::test
