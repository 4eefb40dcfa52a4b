#include "tests/system/kqp_fixture.h"

#include <csignal>
#include <filesystem>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace ryv::test {
namespace {

constexpr uid_t nobody = 65534;

/// About 40 KB that grow when they are written again.
std::string largeProject() {
    std::string content;
    for (int i = 0; i < 1000; ++i)
        content +=
            "=Drawing of a motor " + std::to_string(i) + "\nfolder/drawing" + std::to_string(i) + ".dwg\n";
    return content;
}

/// A file system of 64 KB at a folder, for as long as the object lives.
class SmallDisk {
public:
    explicit SmallDisk(std::string folder) : folder_(std::move(folder)) {
        std::filesystem::create_directory(folder_);
        mounted_ = ::mount("small", folder_.c_str(), "tmpfs", 0, "size=64k") == 0;
    }
    ~SmallDisk() {
        if (mounted_)
            ::umount2(folder_.c_str(), MNT_DETACH);
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

    bool mounted() const { return mounted_; }

private:
    std::string folder_;
    bool mounted_ = false;
};

class KqpRewriteFailureTest : public KqpTest {
protected:
    void mode(const std::string& name, mode_t bits) const {
        ASSERT_EQ(::chmod(folder.native(name).c_str(), bits), 0);
        if (::geteuid() == 0) {
            ASSERT_EQ(::chown(folder.native(name).c_str(), nobody, nobody), 0);
        }
    }

    /// Runs kqp as a user whom permission bits bind, and expects that it fails and leaves everything as it
    /// was.
    void expectRefusal(const std::vector<std::string>& words, const std::string& line) const {
        const std::vector<std::string> names = folder.names();
        const std::string content = folder.read("a.kqp");
        ProcessSetUp setUp;
        setUp.inChild = becomeNobody;
        expectFailure(kqp(words, setUp), line);
        EXPECT_EQ(folder.names(), names);
        EXPECT_EQ(folder.read("a.kqp"), content);
    }
};

TEST_F(KqpRewriteFailureTest, rewrite_writableFolder_isPossibleForThatUser) {
    folder.write("a.kqp", "x/./a.dwg\n");
    mode("a.kqp", 0644);
    mode("", 0755);
    ProcessSetUp setUp;
    setUp.inChild = becomeNobody; // the refusals below mean something only when this works
    expectDone(kqp({"rewrite", "a.kqp"}, setUp));
    EXPECT_NE(folder.read("a.kqp"), "x/./a.dwg\n");
}

TEST_F(KqpRewriteFailureTest, rewrite_readOnlyFile_isRefused) {
    folder.write("a.kqp", "a.dwg\n");
    folder.write("b.kqp", "b.dwg\n");
    mode("a.kqp", 0444);
    mode("b.kqp", 0644);
    mode("", 0755);
    expectRefusal({"rewrite", "a.kqp"}, "kqp: a.kqp: read-only");
    expectRefusal({"rewrite", "b.kqp", "-o", "a.kqp"}, "kqp: a.kqp: read-only");
    expectFailure(kqp({"rewrite", "a.kqp"}), "kqp: a.kqp: read-only"); // binds the superuser too
}

TEST_F(KqpRewriteFailureTest, rewrite_readOnlyFolder_isRefused) {
    folder.write("a.kqp", "a.dwg\n");
    mode("a.kqp", 0644);
    mode("", 0555);
    const std::string reason = ": cannot be written: permission denied";
    ProcessSetUp setUp;
    setUp.inChild = becomeNobody;
    for (const std::vector<std::string>& words :
        std::vector<std::vector<std::string>>{{"rewrite", "a.kqp"}, {"rewrite", "a.kqp", "-o", "b.kqp"}}) {
        const ProcessResult result = kqp(words, setUp);
        EXPECT_EQ(result.exitCode, 2);
        EXPECT_EQ(result.error.substr(0, 10 + reason.size()), "kqp: " + words.back() + reason);
        EXPECT_EQ(std::count(result.error.begin(), result.error.end(), '\n'), 1);
        EXPECT_EQ(folder.read("a.kqp"), "a.dwg\n");
        EXPECT_EQ(folder.names(), std::vector<std::string>{"a.kqp"});
    }
}

TEST_F(KqpRewriteFailureTest, rewrite_toFolderOrMissingFolder_isRefused) {
    std::filesystem::create_directory(folder.native("folder"));
    folder.write("a.kqp", "a.dwg\n");
    mode("a.kqp", 0644);
    mode("", 0755);
    expectRefusal({"rewrite", "a.kqp", "-o", "folder"}, "kqp: folder: is a folder");
    expectRefusal({"rewrite", "none.kqp", "-o", "b.kqp"}, "kqp: none.kqp: no such file or folder");
    expectRefusal({"rewrite", "a.kqp", "-o", "none/b.kqp"},
        "kqp: none/b.kqp: cannot be written: no such file or folder");
}

TEST_F(KqpRewriteFailureTest, rewrite_fullDisk_leavesOldFileWhole) {
    const SmallDisk disk(folder.native("disk"));
    if (!disk.mounted())
        GTEST_SKIP() << "needs the right to mount; the limit on file sizes is tested in any case";
    folder.write("disk/a.kqp", largeProject());
    const ProcessResult result = kqp({"rewrite", "disk/a.kqp"});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_TRUE(result.error.starts_with("kqp: disk/a.kqp: cannot be written: no space left on the disk"))
        << result.error;
    EXPECT_EQ(std::count(result.error.begin(), result.error.end(), '\n'), 1);
    EXPECT_EQ(folder.read("disk/a.kqp"), largeProject());
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.native("disk")), {}), 1);
}

TEST_F(KqpRewriteFailureTest, rewrite_limitOnFileSize_leavesOldFileWhole) {
    folder.write("a.kqp", largeProject());
    ProcessSetUp setUp;
    setUp.inChild = [] { // the signal stays as it is: kqp itself has to cope with it
        const rlimit limit{8192, 8192};
        return ::setrlimit(RLIMIT_FSIZE, &limit) == 0;
    };
    const ProcessResult result = kqp({"rewrite", "a.kqp"}, setUp);
    EXPECT_EQ(result.exitCode, 2) << "signal " << result.signal;
    EXPECT_TRUE(result.error.starts_with("kqp: a.kqp: cannot be written: ")) << result.error;
    EXPECT_EQ(std::count(result.error.begin(), result.error.end(), '\n'), 1);
    EXPECT_EQ(folder.read("a.kqp"), largeProject());
    EXPECT_EQ(folder.names(), std::vector<std::string>{"a.kqp"});
}

} // namespace
} // namespace ryv::test
