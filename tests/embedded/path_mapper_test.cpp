#include "embedded/os/path_mapper.h"
#include "tests/embedded/current_folder.h"
#include "tests/support/temp_folder.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

namespace ryv::test {
namespace {

class PathMapperTest : public ::testing::Test {
protected:
    std::string native(CStringView path) {
        std::string found;
        EXPECT_TRUE(mapper.toNative(path, found).ok()) << shown(path);
        return found;
    }
    FileError failure(CStringView path) {
        std::string found = "left over";
        const FileError error = mapper.toNative(path, found).error;
        EXPECT_TRUE(found.empty());
        return error;
    }
    drafta::PathMapper mapper;
    TempFolder folder;
};

TEST_F(PathMapperTest, dots_areFoldedAndStopAtTheRoot) {
    EXPECT_EQ(native(u"\\none\\.\\a\\..\\x"), "/none/x");
    EXPECT_EQ(native(u"\\..\\..\\none"), "/none");
    ASSERT_TRUE(mapper.mapDrive(u'c', folder.native()));
    EXPECT_EQ(native(u"C:\\..\\..\\x"), folder.native("x"));
}

TEST_F(PathMapperTest, drives_areFoldersWhateverTheCaseOfTheLetter) {
    EXPECT_EQ(failure(u"C:\\x.dwg"), FileError::missing);
    ASSERT_TRUE(mapper.mapDrive(u'c', folder.native()));
    EXPECT_EQ(native(u"C:\\P\\x.dwg"), folder.native("P/x.dwg"));
    EXPECT_EQ(native(u"c:x.dwg"), folder.native("x.dwg"));
    EXPECT_EQ(native(u"C:"), folder.native());
    EXPECT_EQ(failure(u"D:\\x.dwg"), FileError::missing);
    EXPECT_FALSE(mapper.mapDrive(u'1', folder.native()));
    EXPECT_FALSE(mapper.mapDrive(u'ä', folder.native()));
}

TEST_F(PathMapperTest, networkPaths_haveACounterpartOnlyWhenMapped) {
    EXPECT_EQ(failure(u"\\\\srv\\share\\x.dwg"), FileError::badName);
    ASSERT_TRUE(mapper.mapShare(u"\\\\SRV\\Share", folder.native()));
    EXPECT_EQ(native(u"\\\\srv\\share\\x.dwg"), folder.native("x.dwg"));
    EXPECT_EQ(native(u"//Srv/sharE"), folder.native());
    EXPECT_EQ(failure(u"\\\\srv\\share2\\x.dwg"), FileError::badName);
    EXPECT_EQ(failure(u"\\\\srv"), FileError::badName);
    EXPECT_FALSE(mapper.mapShare(u"\\srv\\share", folder.native()));
    EXPECT_FALSE(mapper.mapShare(u"\\\\srv\\share\\deeper", folder.native()));
}

TEST_F(PathMapperTest, names_areLookedUpExactlyFirst) {
    folder.write("A.kqp", "");
    folder.write("a.KQP", "");
    EXPECT_EQ(native(folder.module(u"a.KQP")), folder.native("a.KQP"));
    EXPECT_EQ(native(folder.module(u"A.kqp")), folder.native("A.kqp"));
}

TEST_F(PathMapperTest, names_areThenFoundWithoutRegardToCase_firstInOrder) {
    for (const std::string name : {"a.kqp", "A.kqp", "A.KQP", "a.kqP"})
        folder.write(name, "");
    EXPECT_EQ(native(folder.module(u"a.Kqp")), folder.native("A.KQP"));
}

TEST_F(PathMapperTest, components_areFoundOneByOne) {
    std::filesystem::create_directories(folder.native("Zeichnungen/ÄLTER"));
    folder.write("Zeichnungen/ÄLTER/x.DWG", "");
    EXPECT_EQ(native(folder.module(u"ZEICHNUNGEN\\älter\\X.dwg")), folder.native("Zeichnungen/ÄLTER/x.DWG"));
    EXPECT_EQ(
        native(folder.module(u"ZEICHNUNGEN\\älter\\NEW.dwg")), folder.native("Zeichnungen/ÄLTER/NEW.dwg"));
    EXPECT_EQ(native(folder.module(u"zeichnungen\\No\\ÄLTER")), folder.native("Zeichnungen/No/ÄLTER"));
}

TEST_F(PathMapperTest, linkToNothing_countsAsItsExactName) {
    std::filesystem::create_symlink("nowhere", folder.native("x.dwg"));
    folder.write("X.dwg", "");
    EXPECT_EQ(native(folder.module(u"x.dwg")), folder.native("x.dwg"));
}

TEST_F(PathMapperTest, everyNativeName_comesBackFromItsText) {
    std::vector<std::string> names = {"plain", "a\\b", "\\", "\\\\", "\xFF\\\xFE", "caf\xE9", "\xED\xB1\x9C",
        "\xF0\x9F\x93\x81\\", "\xED\xA0\x81\\", "C:", "x. ", "日本\\.dwg", "\xF0\x90\x91\x9C"};
    for (int byte = 1; byte < 256; ++byte)
        if (byte != '/' && byte != '.')
            names.push_back({static_cast<char>(byte), '\\', static_cast<char>(byte)});
    for (const std::string& name : names) {
        const CString text = mapper.fromNative("/none/" + name);
        EXPECT_EQ(native(text), "/none/" + name) << shown(text);
        EXPECT_EQ(std::count(text.begin(), text.end(), u'\\'), 2) << shown(text);
    }
}

TEST_F(PathMapperTest, escapedNames_areFoundOnDisk) {
    folder.write("back\\slash", "");
    folder.write("caf\xE9", "");
    EXPECT_EQ(native(mapper.fromNative(folder.native("back\\slash"))), folder.native("back\\slash"));
    EXPECT_EQ(native(mapper.fromNative(folder.native("BACK\\slash"))), folder.native("back\\slash"));
    EXPECT_EQ(native(mapper.fromNative(folder.native("CAF\xE9"))), folder.native("caf\xE9"));
}

TEST_F(PathMapperTest, nativePaths_becomeAbsoluteText) {
    EXPECT_EQ(mapper.fromNative("/home//u/./A.kqp"), u"\\home\\u\\A.kqp");
    EXPECT_EQ(mapper.fromNative("/home/u/"), u"\\home\\u");
    EXPECT_EQ(mapper.fromNative("//srv/share"), u"\\srv\\share");
    EXPECT_EQ(mapper.fromNative("/"), u"\\");
    EXPECT_EQ(mapper.fromNative("/.."), u"\\");
    EXPECT_EQ(mapper.fromNative(""), u"");
    const CurrentFolder there(folder.native());
    EXPECT_EQ(mapper.fromNative("x.dwg"), folder.module(u"x.dwg"));
    EXPECT_EQ(mapper.fromNative("no/../x.dwg"), folder.module(u"x.dwg"));
    EXPECT_EQ(mapper.fromNative("."), folder.module());
}

TEST_F(PathMapperTest, parentOfALink_isWhereTheKernelWouldGo) {
    std::filesystem::create_directories(folder.native("deep/er"));
    std::filesystem::create_directory_symlink("deep/er", folder.native("link"));
    folder.write("deep/x.dwg", "");
    EXPECT_EQ(mapper.fromNative(folder.native("link/../x.dwg")), folder.module(u"deep\\x.dwg"));
    EXPECT_EQ(mapper.fromNative(folder.native("link/x.dwg")), folder.module(u"link\\x.dwg"));
    EXPECT_EQ(mapper.fromNative(folder.native("deep/../x.dwg")), folder.module(u"x.dwg"));
}

} // namespace
} // namespace ryv::test
