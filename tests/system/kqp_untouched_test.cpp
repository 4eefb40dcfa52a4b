#include "siblings/atomic_file.h"
#include "tests/system/kqp_fixture.h"

#include <filesystem>
#include <sys/stat.h>
#include <tuple>

namespace ryv::test {
namespace {

/// What one entry of a folder is like; the folder itself is the entry "".
using Entry = std::tuple<std::string, std::string, mode_t, long, long, ino_t>;

Entry entryOf(const TempFolder& folder, const std::string& name) {
    struct stat status {};
    if (::lstat(folder.native(name).c_str(), &status) != 0)
        throw std::runtime_error("cannot look at " + name);
    const std::string content = S_ISREG(status.st_mode) ? folder.read(name) : std::string();
    return {name, content, status.st_mode, status.st_mtim.tv_sec, status.st_mtim.tv_nsec, status.st_ino};
}

std::vector<Entry> snapshot(const TempFolder& folder) {
    std::vector<Entry> entries{entryOf(folder, "")};
    for (const std::string& name : folder.names())
        entries.push_back(entryOf(folder, name));
    return entries;
}

class KqpUntouchedTest : public KqpTest {};

TEST_F(KqpUntouchedTest, readingCommands_leaveTheFolderAsItWas) {
    folder.write("plant.kqp", plantProject);
    folder.write("bad.kqp", "*[x]\n=left\n");
    folder.write("plant.rypx", "RYPX 1\nnext=3\nid=1\tcover.dwg\nid=2\tgone.dwg\n");
    const std::string leftOver = nameToBytes(temporaryNameFor(folder.module(u"plant.kqp")));
    folder.write(leftOver.substr(leftOver.rfind('\\') + 1), "half a file of a writer that was killed");
    const std::vector<Entry> before = snapshot(folder);
    ASSERT_EQ(before.size(), 5u);
    for (const std::string name : {"plant.kqp", "bad.kqp"}) {
        expectDone(kqp({"show", name}));
        expectDone(kqp({"show", "--json", name}));
        EXPECT_NE(kqp({"check", name}).exitCode, 2);
        EXPECT_NE(kqp({"equal", name, "plant.kqp"}).exitCode, 2);
    }
    EXPECT_EQ(snapshot(folder), before);
}

} // namespace
} // namespace ryv::test
