#include "siblings/rypx_filer.h"

#include "tests/support/fault_files.h"
#include "tests/support/memory_files.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

namespace ryv::test {
namespace {

class RypxFiler : public ::testing::Test {
protected:
    void TearDown() override { EXPECT_EQ(files.openHandles(), 0u); }
    RyvPmUtilsRypxFiler filer() { return RyvPmUtilsRypxFiler(files, project); }
    std::int32_t idOf(CStringView path) { return RyvPmUtilsRypxFiler(files, project).GetFileId(path); }

    const CString project = u"C:\\P\\a.kqp";
    const CString store = u"C:\\P\\a.rypx";
    MemoryFiles files;
};

TEST_F(RypxFiler, readingAndSavingWithoutAChange_makesNoStore) {
    RyvPmUtilsRypxFiler one(files, project);
    CString a = u"before";
    CString b;
    EXPECT_EQ(one.GetFileId(u"C:\\P\\x.dwg"), 0);
    EXPECT_TRUE(one.ValidateAndGetFileIds({u"C:\\P\\x.dwg"}).empty());
    EXPECT_FALSE(one.GetProjectData(a, b, true));
    EXPECT_EQ(a, u"before");
    one.remove(u"C:\\P\\x.dwg");
    one.keepOnly({});
    EXPECT_TRUE(one.save().ok());
    EXPECT_TRUE(files.paths().empty());
}

TEST_F(RypxFiler, identifiers_areStableAndNeverUsedAgain) {
    RyvPmUtilsRypxFiler one(files, project);
    const std::int32_t x = one.add(u"C:\\P\\x.dwg");
    EXPECT_GT(x, 0);
    EXPECT_EQ(one.add(u"c:\\p\\X.DWG"), x) << "known already";
    const std::int32_t y = one.add(u"D:\\far.dwg");
    EXPECT_NE(y, x);
    one.remove(u"D:\\FAR.dwg");
    EXPECT_EQ(one.GetFileId(u"D:\\far.dwg"), 0);
    ASSERT_TRUE(one.save().ok());
    RyvPmUtilsRypxFiler two(files, project);
    EXPECT_EQ(two.GetFileId(u"C:\\P\\x.dwg"), x);
    const std::int32_t z = two.add(u"C:\\P\\z.dwg");
    EXPECT_NE(z, x);
    EXPECT_NE(z, y) << "also not after the store was read again";
}

TEST_F(RypxFiler, rename_movesTheIdentifier) {
    RyvPmUtilsRypxFiler one(files, project);
    const std::int32_t x = one.add(u"C:\\P\\x.dwg");
    const std::int32_t other = one.add(u"C:\\P\\other.dwg");
    one.rename(u"C:\\P\\X.dwg", u"C:\\P\\sub\\y.dwg");
    EXPECT_EQ(one.GetFileId(u"C:\\P\\x.dwg"), 0);
    EXPECT_EQ(one.GetFileId(u"C:\\P\\sub\\y.dwg"), x);
    one.rename(u"C:\\P\\sub\\y.dwg", u"C:\\P\\sub\\Y.DWG");
    EXPECT_EQ(one.GetFileId(u"C:\\P\\sub\\y.dwg"), x) << "case only";
    one.rename(u"C:\\P\\unknown.dwg", u"C:\\P\\new.dwg");
    EXPECT_NE(one.GetFileId(u"C:\\P\\new.dwg"), 0) << "one that had none gets one";
    ASSERT_TRUE(one.save().ok());
    EXPECT_EQ(idOf(u"C:\\P\\sub\\y.dwg"), x);
    EXPECT_EQ(idOf(u"C:\\P\\other.dwg"), other);
}

TEST_F(RypxFiler, validate_givesOneIdentifierForEachName) {
    files.put(store, "RYPX 1\nnext=20\nid=7\tx.dwg\nid=9\tD:\\y.dwg\n");
    const CStringArray names{u"C:\\P\\nowhere", u"d:\\Y.dwg", u"C:\\P\\X.dwg", u"C:\\P\\X.dwg", u"x.dwg"};
    EXPECT_EQ(filer().ValidateAndGetFileIds(names), (CArray<std::int32_t>{0, 9, 7, 7, 7}));
}

TEST_F(RypxFiler, keepOnly_forgetsTheRest) {
    RyvPmUtilsRypxFiler one(files, project);
    const std::int32_t x = one.add(u"C:\\P\\x.dwg");
    one.add(u"C:\\P\\y.dwg");
    one.keepOnly({u"c:\\p\\X.dwg", u"C:\\P\\unknown.dwg"});
    ASSERT_TRUE(one.save().ok());
    EXPECT_EQ(files.get(store), "RYPX 1\nnext=3\nid=" + std::to_string(x) + "\tx.dwg\n");
    const std::string before = *files.get(store);
    RyvPmUtilsRypxFiler two(files, project);
    two.keepOnly({u"C:\\P\\x.dwg"});
    FaultFiles faulty(files);
    EXPECT_TRUE(two.save().ok());
    EXPECT_EQ(files.get(store), before);
}

TEST_F(RypxFiler, movedFolder_keepsItsIdentifiers) {
    RyvPmUtilsRypxFiler one(files, project);
    const std::int32_t inside = one.add(u"C:\\P\\sub\\x.dwg");
    const std::int32_t outside = one.add(u"E:\\lib\\y.dwg");
    ASSERT_TRUE(one.save().ok());
    files.moveFolder(u"C:\\P", u"\\\\server\\jobs\\Q");
    RyvPmUtilsRypxFiler moved(files, u"\\\\server\\jobs\\Q\\a.kqp");
    EXPECT_EQ(moved.GetFileId(u"\\\\server\\jobs\\Q\\sub\\x.dwg"), inside);
    EXPECT_EQ(moved.GetFileId(u"E:\\lib\\y.dwg"), outside);
}

TEST_F(RypxFiler, identity_isKeptForBothProjects) {
    RyvPmUtilsRypxFiler one(files, project);
    one.SetProjectData(u"a\tb", u"c\r\nd", true);
    one.SetProjectData(u"", u"", false);
    ASSERT_TRUE(one.save().ok());
    RyvPmUtilsRypxFiler two(files, project);
    CString a = u"before";
    CString b = u"before";
    EXPECT_TRUE(two.GetProjectData(a, b, true));
    EXPECT_EQ(a, u"a b");
    EXPECT_EQ(b, u"c  d");
    EXPECT_TRUE(two.GetProjectData(a, b, false));
    EXPECT_EQ(a + b, u"");
}

TEST_F(RypxFiler, oddNames_comeBack) {
    RyvPmUtilsRypxFiler one(files, project);
    const CString names[] = {u"C:\\P\\a=b\t.dwg", u"C:\\P\\\u03A9\U0001F600.dwg",
        u"C:\\P\\" + CString(1, char16_t{0xDCFF}), u"C:\\P\\ x ", CString(u"C:\\P\\a\0b", 8),
        u"C:\\P\\" + CString(400, u'x')};
    for (const CString& name : names)
        EXPECT_NE(one.add(name), 0);
    ASSERT_TRUE(one.save().ok());
    for (const CString& name : names)
        EXPECT_EQ(idOf(name), one.GetFileId(name)) << shown(name);
}

TEST_F(RypxFiler, damagedStore_isNeitherUsedNorOverwritten) {
    const std::string contents[] = {"", "RYPX 2\nnext=1\n", "RYPX 1\r\nnext=1\r\n", "RYPX 1\nid=0\tx.dwg\n",
        "RYPX 1\nid=-4\tx.dwg\n", "RYPX 1\nid=2147483648\tx.dwg\n", "RYPX 1\nid=x\tx.dwg\n",
        "RYPX 1\nid=5 x.dwg\n", "RYPX 1\nnext=\n", "RYPX 1\nlocal=a\n", "RYPX 1\nid=5\tx.dwg\nwhatever\n",
        "RYPX 1\nid=5\tx.dwg\nlater=1\n"};
    for (const std::string& content : contents) {
        files.put(store, content);
        RyvPmUtilsRypxFiler one(files, project);
        EXPECT_EQ(one.GetFileId(u"C:\\P\\x.dwg"), 0) << content;
        EXPECT_EQ(one.add(u"C:\\P\\y.dwg"), 0) << content;
        one.remove(u"C:\\P\\x.dwg");
        one.rename(u"C:\\P\\x.dwg", u"C:\\P\\z.dwg");
        one.SetProjectData(u"a", u"b", true);
        one.keepOnly({});
        CString a;
        EXPECT_FALSE(one.GetProjectData(a, a, true)) << content;
        EXPECT_TRUE(one.save().ok()) << content;
        EXPECT_EQ(files.get(store), content);
    }
}

TEST_F(RypxFiler, storeThatCannotBeRead_isNotOverwritten) {
    files.put(store, "RYPX 1\nnext=9\nid=5\tx.dwg\n");
    FaultFiles faulty(files);
    faulty.arm({FileError::io, 1, FileCall::read, true, false});
    RyvPmUtilsRypxFiler one(faulty, project);
    EXPECT_EQ(one.add(u"C:\\P\\y.dwg"), 0);
    faulty.disarm();
    EXPECT_TRUE(one.save().ok());
    EXPECT_EQ(files.get(store), "RYPX 1\nnext=9\nid=5\tx.dwg\n");
}

TEST_F(RypxFiler, numbersAtTheirEnd_giveNoNewIdentifier) {
    files.put(store, "RYPX 1\nnext=3\nid=2147483646\tx.dwg\n");
    RyvPmUtilsRypxFiler one(files, project);
    EXPECT_EQ(one.add(u"C:\\P\\y.dwg"), 0);
    EXPECT_EQ(one.GetFileId(u"C:\\P\\x.dwg"), 2147483646);
}

// -- Several processes.

TEST_F(RypxFiler, twoThatSaveInterleaved_loseNothing) {
    RyvPmUtilsRypxFiler one(files, project);
    RyvPmUtilsRypxFiler two(files, project);
    one.add(u"C:\\P\\1.dwg");
    two.add(u"C:\\P\\2.dwg");
    ASSERT_TRUE(one.save().ok());
    ASSERT_TRUE(two.save().ok());
    one.add(u"C:\\P\\3.dwg");
    two.rename(u"C:\\P\\1.dwg", u"C:\\P\\4.dwg");
    ASSERT_TRUE(two.save().ok());
    ASSERT_TRUE(one.save().ok());
    const std::int32_t ids[] = {idOf(u"C:\\P\\2.dwg"), idOf(u"C:\\P\\3.dwg"), idOf(u"C:\\P\\4.dwg")};
    for (const std::int32_t id : ids)
        EXPECT_NE(id, 0);
    EXPECT_NE(ids[0], ids[1]);
    EXPECT_NE(ids[0], ids[2]);
    EXPECT_NE(ids[1], ids[2]);
    EXPECT_EQ(idOf(u"C:\\P\\1.dwg"), 0);
    EXPECT_EQ(one.GetFileId(u"C:\\P\\4.dwg"), ids[2]) << "what the other did is known afterwards";
}

TEST_F(RypxFiler, damageInBetween_isNotOverwritten) {
    RyvPmUtilsRypxFiler one(files, project);
    one.add(u"C:\\P\\1.dwg");
    files.put(store, "somebody else's");
    EXPECT_FALSE(one.save().ok());
    EXPECT_EQ(files.get(store), "somebody else's");
}

TEST_F(RypxFiler, failedSave_isTriedAgainByTheNext) {
    FaultFiles faulty(files);
    RyvPmUtilsRypxFiler one(faulty, project);
    const std::int32_t id = one.add(u"C:\\P\\1.dwg");
    faulty.limitSpace(3);
    EXPECT_EQ(one.save().error, FileError::noSpace);
    EXPECT_TRUE(files.paths().empty());
    faulty.limitSpace(1000);
    EXPECT_TRUE(one.save().ok());
    EXPECT_EQ(idOf(u"C:\\P\\1.dwg"), id);
}

} // namespace
} // namespace ryv::test
