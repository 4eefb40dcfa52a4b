#include "siblings/file_content.h"
#include "siblings/open_file.h"
#include "tests/siblings/save_fixture.h"

#include <random>
#include <set>
#include <sys/stat.h>
#include <unistd.h>

namespace ryv::test {
namespace {

TEST(ContentHash, everyChangedBit_changesIt) {
    for (const std::size_t size : {1u, 7u, 8u, 31u, 32u, 33u, 64u, 100u}) {
        std::string bytes(size, 'a');
        std::set<std::uint64_t> seen{contentHash(bytes)};
        for (std::size_t bit = 0; bit < 8 * size; ++bit) {
            bytes[bit / 8] = static_cast<char>(bytes[bit / 8] ^ (1 << (bit % 8)));
            EXPECT_TRUE(seen.insert(contentHash(bytes)).second) << size << " bytes, bit " << bit;
            bytes[bit / 8] = static_cast<char>(bytes[bit / 8] ^ (1 << (bit % 8)));
        }
    }
}

/// Flips in one lane's neighbouring words must not undo each other.
TEST(ContentHash, everyPairOfChangedBits_changesIt) {
    std::string bytes(96, 'a');
    std::set<std::uint64_t> seen{contentHash(bytes)};
    const auto flip = [&bytes](std::size_t bit) {
        bytes[bit / 8] = static_cast<char>(bytes[bit / 8] ^ (1 << (bit % 8)));
    };
    for (std::size_t first = 0; first < 64; ++first) {
        for (std::size_t second = 256; second < 320; ++second) {
            flip(first);
            flip(second);
            EXPECT_TRUE(seen.insert(contentHash(bytes)).second) << first << " and " << second;
            flip(first);
            flip(second);
        }
    }
}

TEST(ContentHash, contentsOfDifferentLength_differ) {
    std::set<std::uint64_t> seen;
    for (std::size_t size = 0; size < 2000; ++size)
        EXPECT_TRUE(seen.insert(contentHash(std::string(size, '\0'))).second) << size;
}

class FileContent : public SaveFixture {
protected:
    FileStatus read() { return readWholeFile(files, path, content, found); }
    ByteBuffer content;
    Fingerprint found;
};

TEST_F(FileContent, wholeFile_isReadWithItsFingerprint) {
    const std::string bytes = "some\0bytes" + std::string(100000, 'z');
    folder.write("A.kqp", bytes);
    ASSERT_TRUE(read().ok());
    EXPECT_EQ(content.view(), bytes);
    EXPECT_TRUE(found.present);
    EXPECT_EQ(found.size, bytes.size());
    EXPECT_EQ(found.hash, contentHash(bytes));
    FileInformation information;
    ASSERT_TRUE(real.information(path, information).ok());
    EXPECT_EQ(found.device, information.device);
    EXPECT_EQ(found.inode, information.inode);
    EXPECT_EQ(found.modifiedNanoseconds, information.modifiedNanoseconds);
}

TEST_F(FileContent, missingFolderAndPipe_areToldApart) {
    EXPECT_EQ(read().error, FileError::missing);
    Fingerprint none;
    EXPECT_TRUE(fingerprintOf(files, path, none).ok());
    EXPECT_FALSE(none.present);
    ASSERT_EQ(::mkfifo(folder.native("A.kqp").c_str(), 0600), 0);
    EXPECT_EQ(read().error, FileError::notRegular);
    path = folder.module();
    EXPECT_EQ(read().error, FileError::isFolder);
    EXPECT_TRUE(content.empty());
    EXPECT_EQ(found, Fingerprint{});
}

TEST_F(FileContent, everyFailingCall_isReportedAndLeavesNothing) {
    folder.write("A.kqp", "content");
    for (Fault fault;; ++fault.number) {
        files.arm(fault);
        const FileStatus status = read();
        if (!files.fired())
            break;
        EXPECT_EQ(status.error, FileError::io) << fault.number;
        EXPECT_TRUE(content.empty());
        EXPECT_FALSE(found.present);
    }
    EXPECT_EQ(content.view(), "content");
}

TEST_F(FileContent, fileThatKeepsGrowing_isBusyAtLast) {
    folder.write("A.kqp", "content");
    // A file of the kernel that reports no size and has content all the same looks as if it grew under the
    // reader.
    path = u"\\proc\\self\\status";
    EXPECT_EQ(read().error, FileError::busy);
    EXPECT_TRUE(content.empty());
}

TEST_F(FileContent, renamedAwayFile_isNoLongerAtItsPath) {
    OpenFile file(files);
    ASSERT_TRUE(file.open(path, OpenMode::createExclusive).ok());
    bool same = false;
    ASSERT_TRUE(isStillAt(files, file.handle(), path, same).ok());
    EXPECT_TRUE(same);
    std::filesystem::rename(folder.native("A.kqp"), folder.native("B.kqp"));
    ASSERT_TRUE(isStillAt(files, file.handle(), path, same).ok());
    EXPECT_FALSE(same);
    folder.write("A.kqp", "another");
    ASSERT_TRUE(isStillAt(files, file.handle(), path, same).ok());
    EXPECT_FALSE(same);
}

} // namespace
} // namespace ryv::test
