// What protects the work of other processes, and of this one after a failure.

#include "base/encoding.h"
#include "siblings/kqp_filer.h"
#include "tests/support/fault_files.h"
#include "tests/support/memory_files.h"
#include "tests/support/temp_folder.h"

#include "embedded/os/posix_files.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <chrono>

namespace ryv::test {
namespace {

class Filer final : public RyvPmUtilsKQPFiler {
public:
    using RyvPmUtilsKQPFiler::commit;
    using RyvPmUtilsKQPFiler::RyvPmUtilsKQPFiler;
};

class FilerGuard : public ::testing::Test {
protected:
    const CString path = u"C:\\P\\a.kqp";
    MemoryFiles files;
};

} // namespace

TEST_F(FilerGuard, cleanup_movesNeitherGuardNorIdentifiers) {
    files.put(path, "*[1]mine\n");
    Filer filer(files, path, true);
    ASSERT_TRUE(filer.readProject());
    ASSERT_TRUE(filer.AddFile(u"C:\\P\\new.dwg"));
    ASSERT_TRUE(filer.commit("*[1]mine\nnew.dwg\n"));
    ASSERT_TRUE(filer.CleanupProjectData());
    EXPECT_NE(filer.GetFileId(u"C:\\P\\new.dwg"), 0) << "it stands in the file by now";

    files.put(path, "*[1]theirs\n");
    ASSERT_TRUE(filer.CleanupProjectData());
    EXPECT_FALSE(filer.commit("*[1]mine\n"));
    EXPECT_EQ(filer.getLastError(), RyvPmUtilsKQPFiler::changedOutside);
    EXPECT_EQ(files.get(path), "*[1]theirs\n");
}

TEST_F(FilerGuard, failedRead_isNotWrittenOver) {
    files.put(path, "*[1]precious\n");
    FaultFiles faulty(files);
    Filer filer(faulty, path, true);
    faulty.arm({FileError::io, 1, FileCall::read, true, false});
    EXPECT_FALSE(filer.readProject());
    faulty.disarm();
    EXPECT_FALSE(filer.commit("\n"));
    EXPECT_EQ(filer.getLastError(), RyvPmUtilsKQPFiler::cannotWrite);
    EXPECT_EQ(files.get(path), "*[1]precious\n");
    EXPECT_TRUE(filer.readProject());
    EXPECT_TRUE(filer.commit("*[1]new\n"));
}

TEST_F(FilerGuard, guardOfAnotherFiler_canBeTakenOver) {
    files.put(path, "*[1]read\n");
    Filer reader(files, path, false);
    ASSERT_TRUE(reader.readProject());
    files.put(path, "*[1]theirs\n");
    Filer writer(files, path, true);
    writer.expectContent(reader.knownContent().value());
    EXPECT_FALSE(writer.commit("*[1]mine\n"));
    EXPECT_EQ(files.get(path), "*[1]theirs\n");
}

TEST_F(FilerGuard, reopening_seesWhatAnotherProcessStored) {
    files.put(path, "\n");
    Filer mine(files, path, false);
    EXPECT_EQ(mine.GetFileId(u"C:\\P\\x.dwg"), 0);
    Filer other(files, path, true);
    ASSERT_TRUE(other.AddFile(u"C:\\P\\x.dwg"));
    ASSERT_TRUE(other.commit("x.dwg\n"));
    ASSERT_TRUE(mine.openProject(path, false));
    EXPECT_EQ(mine.GetFileId(u"C:\\P\\x.dwg"), other.GetFileId(u"C:\\P\\x.dwg"));
    Filer closed(files);
    EXPECT_FALSE(closed.AddFile(u"x.dwg"));
    EXPECT_EQ(closed.getLastError(), RyvPmUtilsKQPFiler::notOpen);
}

TEST(FilerDanglingLink, atTheTemporaryName_doesNotStopSaving) {
    TempFolder folder;
    drafta::PathMapper mapper;
    drafta::PosixFiles files(mapper);
    ASSERT_EQ(::symlink("nowhere", folder.native(".a.kqp.saving").c_str()), 0);
    Filer filer(files, folder.module(u"a.kqp"), true);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_TRUE(filer.commit("*[1]x\n"));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(3));
}

TEST(FilerEncoding, longMixedText_isEncodedInLinearTime) {
    CString text;
    for (int i = 0; i < 200000; ++i)
        text.append(u"\u00E9 and forty more letters that are plain ones");
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(decodeUtf8(toUtf8(text)), text);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
}

} // namespace ryv::test
