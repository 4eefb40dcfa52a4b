// Folders and path variables of the first four miscellaneous settings, and other substitutions by the host.
#include "tests/support/project_fixture.h"

namespace ryv::test {
namespace {

class PathVariables : public ProjectFixture {
protected:
    PathVariables() { surroundings.documents.open = true; }

    void setFolder(CStringView global, CStringView folder) {
        surroundings.lisp.setVariable(global, HostResultBuffer().addString(folder));
    }
    CString swapped(CString text, bool expand = false) {
        RyvPrmKQPFiler(true).SwapFullPathWithVariable(text, expand);
        return text;
    }
    static void setMisc(RyvPrmProjectData& project, std::initializer_list<std::pair<int, CString>> values) {
        RyvPmMiscProjSettings misc;
        for (const auto& [index, value] : values)
            misc.setValue(index, &value);
        project.setMiscProjSettings(misc);
    }
};

TEST_F(PathVariables, foldersAndVariables_replaceEachOther) {
    setFolder(u"GBL_kq_BaseLibs", u"D:\\Libs");
    setFolder(u"GBL_KQ_DOCSETKQBASE", u"D:\\Kq");
    setFolder(u"GBL_KQ_DOCSETBASE", u"D:\\Set");
    setFolder(u"GBL_KQ_BASEINSTALL", u"D:\\Prog");
    const std::pair<CString, CString> pairs[] = {{u"D:\\Libs\\x", u"%SL_DIR%\\x"},
        {u"D:\\Kq\\x;D:\\Kq\\y", u"%KQ_DIR%\\x;%KQ_DIR%\\y"},
        {u"D:\\Set;D:\\Prog\\z", u"%DS_DIR%;%PF_DIR%\\z"}, {u"nothing", u"nothing"}};
    for (const auto& [full, shortened] : pairs) {
        EXPECT_EQ(swapped(full), shortened);
        EXPECT_EQ(swapped(shortened, true), full);
    }
    EXPECT_EQ(swapped(u"d:\\libs\\x"), u"d:\\libs\\x") << "case counts";
    EXPECT_EQ(swapped(u"%sl_dir%\\x", true), u"%sl_dir%\\x") << "case counts";
}

/// The pairs are applied in their order, each to what the one before left.
TEST_F(PathVariables, foldersInOneAnother_areReplacedInOrder) {
    setFolder(u"GBL_kq_BaseLibs", u"D:\\P\\Libs");
    setFolder(u"GBL_KQ_BASEINSTALL", u"D:\\P");
    EXPECT_EQ(swapped(u"D:\\P\\Libs\\x;D:\\P\\y"), u"%SL_DIR%\\x;%PF_DIR%\\y");
    setFolder(u"GBL_kq_BaseLibs", u"D:\\P");
    setFolder(u"GBL_KQ_BASEINSTALL", u"D:\\P\\Libs");
    EXPECT_EQ(swapped(u"D:\\P\\Libs\\x"), u"%SL_DIR%\\Libs\\x");
    setFolder(u"GBL_KQ_DOCSETKQBASE", u"%SL_DIR%\\Libs");
    EXPECT_EQ(swapped(u"D:\\P\\Libs\\x"), u"%KQ_DIR%\\x");
    EXPECT_EQ(swapped(u"%KQ_DIR%\\x", true), u"%SL_DIR%\\Libs\\x");
}

TEST_F(PathVariables, valuesThatAreNoText_replaceNothing) {
    setFolder(u"GBL_kq_BaseLibs", u"");
    surroundings.lisp.setVariable(u"GBL_KQ_DOCSETKQBASE", HostResultBuffer().addInteger(7));
    EXPECT_EQ(swapped(u"abc 7"), u"abc 7");
    EXPECT_EQ(swapped(u"%SL_DIR%\\%KQ_DIR%", true), u"%SL_DIR%\\%KQ_DIR%");
    EXPECT_EQ(surroundings.lisp.calls().size(), 8u);
    const std::vector<CString> call{u"ryv_get_var", u"GBL_KQ_BASEINSTALL"};
    EXPECT_EQ(surroundings.lisp.calls().back(), call);
}

TEST_F(PathVariables, writeProject_replacesInTheFirstFourOnly) {
    setFolder(u"GBL_kq_BaseLibs", u"D:\\Libs");
    RyvPrmProjectData project;
    setMisc(project, {{1, u"D:\\Libs\\x"}, {2, u"d:\\libs"}, {4, u"D:\\Libs"}, {5, u"D:\\Libs"}});
    EXPECT_EQ(write(project), "+[1]%SL_DIR%\\x\n+[2]d:\\libs\n+[4]%SL_DIR%\n+[5]D:\\Libs\n");
}

/// Reading keeps the variables: whoever needs the folder expands them.
TEST_F(PathVariables, reading_doesNotExpand) {
    setFolder(u"GBL_kq_BaseLibs", u"D:\\Libs");
    RyvPrmProjectData project;
    read("+[1]%SL_DIR%\\x\n", project);
    EXPECT_EQ(project.getMiscProjSettings().values().at(1), u"%SL_DIR%\\x");
}

TEST_F(PathVariables, writeProjectEx_substitutesThroughTheHost) {
    surroundings.lisp.define(
        u"kq_1_luk4_replaceable_substitution", [](const HostResultBuffer& call, HostResultBuffer& out) {
            out.addString(*call.stringAt(1) + u"!");
            return LispStatus::success;
        });
    setFolder(u"GBL_kq_BaseLibs", u"x");
    RyvPrmProjectData project;
    setMisc(project, {{1, u"x"}, {4, u"y"}, {5, u"z"}});
    files.put(path, "");
    RyvPrmKQPFiler filer(path, true, true);
    EXPECT_TRUE(filer.writeProjectEx(project));
    EXPECT_EQ(files.get(path), "+[1]x!\n+[4]y!\n+[5]z\n");
    surroundings.lisp.fail(u"kq_1_luk4_replaceable_substitution");
    EXPECT_TRUE(filer.writeProjectEx(project));
    EXPECT_EQ(files.get(path), "+[1]x\n+[4]y\n+[5]z\n") << "a failing call changes nothing";
}

TEST_F(PathVariables, writeProjectExWithoutADocument_asksTheService) {
    surroundings.documents.open = false;
    surroundings.variables.values[u"LIB"] = u"D:\\Libs";
    RyvPrmProjectData project;
    setMisc(project, {{1, u"${LIB}\\x"}, {5, u"${LIB}"}});
    files.put(path, "");
    RyvPrmKQPFiler filer(path, true, true);
    EXPECT_TRUE(filer.writeProjectEx(project));
    EXPECT_EQ(files.get(path), "+[1]D:\\Libs\\x\n+[5]${LIB}\n");
    EXPECT_TRUE(surroundings.lisp.calls().empty());
}

TEST_F(PathVariables, pathsOfAProject_areMadeRelativeAndAbsolute) {
    files.put(path, "");
    RyvPrmKQPFiler filer(path, false, true);
    struct Case {
        CString absolute;
        bool possible;
        CString relative;
    };
    const Case cases[] = {{u"C:\\P\\x.dwg", true, u"x.dwg"}, {u"C:\\x.dwg", true, u"..\\x.dwg"},
        {u"C:\\P\\a\\x.dwg", true, u"a\\x.dwg"}, {u"D:\\x.dwg", false, u"D:\\x.dwg"}};
    for (const Case& each : cases) {
        CString text = each.absolute;
        EXPECT_EQ(filer.absoluteToRelative(text), each.possible) << shown(each.absolute);
        EXPECT_EQ(text, each.relative);
        EXPECT_TRUE(filer.relativeToAbsolute(text));
        EXPECT_EQ(text, each.absolute);
    }
    CString tooLong(257, u'x');
    EXPECT_FALSE(filer.relativeToAbsolute(tooLong));
    EXPECT_EQ(tooLong, CString(257, u'x'));
}

} // namespace
} // namespace ryv::test
