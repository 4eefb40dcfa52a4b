// LISP that changes the project while it is asked, and steps of a read on a project that was looked into
// before.

#include "tests/support/project_fixture.h"

namespace ryv::test {

using FilerReentry = ProjectFixture;

TEST_F(FilerReentry, lispThatChangesTheProject_doesNotDisturbTheWrite) {
    RyvPrmProjectData project;
    read("+[1]C:\\Libs\\a\n+[2]b\n+[3]c\nx.dwg\n", project);
    surroundings.documents.open = true;
    surroundings.lisp.define(u"ryv_get_var", [&](const HostResultBuffer&, HostResultBuffer& out) {
        project.setMiscProjSettings({});
        project.removeAllFiles();
        out = HostResultBuffer().addString(u"C:\\Libs");
        return LispStatus::success;
    });
    const std::string written = write(project);
    EXPECT_NE(written.find("+[1]%SL_DIR%\\a\n+[2]b\n+[3]c\n"), std::string::npos) << written;
}

TEST_F(FilerReentry, drawingsReadIntoAProjectThatWasSearched_areFound) {
    files.put(path, "=====SUB=A\nx.dwg\n=====SUB=B\ny.dwg\nz.dwg\n");
    RyvPrmProjectData project;
    EXPECT_FALSE(project.isFileInProject(u"C:\\P\\x.dwg"));
    RyvPrmKQPFiler filer(path, false, true);
    ASSERT_TRUE(static_cast<RyvPmUtilsKQPFiler&>(filer).readProject());
    ASSERT_TRUE(filer.initFileDetails(project));
    for (const CString name : {u"x", u"y", u"z"})
        EXPECT_TRUE(project.isFileInProject(u"C:\\P\\" + name + u".dwg")) << toUtf8(name);
    EXPECT_FALSE(project.isFileInProject(u""));
}

TEST_F(FilerReentry, projectWithoutAFolder_keepsAbsolutePathsWhole) {
    path = u"rel.kqp";
    RyvPrmProjectData project;
    project.addFile(std::make_unique<RyvPrmFileDetails>(u"\\home\\u\\x.dwg"));
    EXPECT_EQ(write(project), "\\home\\u\\x.dwg\n");
}

TEST_F(FilerReentry, emptyTexts_compareEqualWhereverTheyLie) {
    RyvPrmFileDetails touched(u"a.dwg");
    touched.setDescription1(u"x");
    touched.setDescription1(u"");
    EXPECT_TRUE(touched == RyvPrmFileDetails(u"a.dwg"));
    RyvPrmFileDetails blank;
    blank.setReferenceOnly(true);
    blank.setReferenceOnly(false);
    EXPECT_TRUE(blank == RyvPrmFileDetails());
}

} // namespace ryv::test
