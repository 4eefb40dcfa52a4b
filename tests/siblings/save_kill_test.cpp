// Saves of real processes: killed at random moments, and two at a time on one file.
#include "tests/siblings/save_fixture.h"
#include "tests/support/fork.h"

#include <charconv>
#include <fcntl.h>
#include <random>
#include <thread>
#include <unistd.h>

namespace ryv::test {
namespace {

constexpr int kills = 1000;
constexpr int editsEach = 1000;
constexpr std::size_t blockSize = 4096;

/// A content that shows of itself whether it is whole: "version number\n" over and over, and its size from
/// the number.
std::string versionContent(unsigned version) {
    std::string content;
    const std::string line = std::to_string(version) + "\n";
    for (std::size_t size = (1 + version % 40) * blockSize; content.size() < size;)
        content += line;
    return content;
}

bool isWhole(std::string_view content) {
    unsigned version = 0;
    const auto parsed = std::from_chars(content.data(), content.data() + content.size(), version);
    return parsed.ec == std::errc() && content == versionContent(version);
}

class SaveKill : public SaveFixture {
protected:
    enum ReaderResult { allWhole, torn, missing, tooFew };

    /// Saves one version after the other until it is killed.
    int saveForever(Pipe& started, unsigned version) {
        started.notify();
        for (;; ++version)
            if (!saveAtomically(real, {path, versionContent(version), {}}).ok())
                return 1;
    }

    /// Reads by plain means until the parent closes its end of the pipe.
    int readForever(Pipe& stop) {
        stop.closeEnd(1);
        ::fcntl(stop.readEnd(), F_SETFL, O_NONBLOCK);
        int reads = 0;
        for (char byte = 0; ::read(stop.readEnd(), &byte, 1) != 0; ++reads) {
            if (!std::filesystem::exists(folder.native("A.kqp")))
                return missing;
            if (!isWhole(folder.read("A.kqp")))
                return torn;
        }
        return reads < kills ? tooFew : allWhole;
    }

    void killOneSave(unsigned version, std::chrono::microseconds delay) {
        Pipe started;
        const pid_t child = startChild([&] { return saveForever(started, version); });
        ASSERT_TRUE(started.wait());
        std::this_thread::sleep_for(delay);
        ::kill(child, SIGKILL);
        ASSERT_EQ(exitCode(child), -1) << "a save failed";
        EXPECT_TRUE(isWhole(folder.read("A.kqp")));
    }

    /// Adds one to the number in the file, again and again when another process was faster.
    int edit(Pipe& start) {
        start.closeEnd(1);
        static_cast<void>(start.wait());
        for (int done = 0; done < editsEach;) {
            ByteBuffer content;
            Fingerprint seen;
            if (!readWholeFile(real, path, content, seen).ok())
                return 1;
            int number = 0;
            std::from_chars(content.data(), content.data() + content.size(), number);
            const SaveResult result = saveAtomically(real, {path, std::to_string(number + 1), seen});
            if (result.ok())
                ++done;
            else if (result.status.error != FileError::changedOutside &&
                     result.status.error != FileError::busy)
                return 2;
        }
        return 0;
    }
};

TEST_F(SaveKill, killedAtRandomMoments_leavesTheOldOrTheNewFile) {
    folder.write("A.kqp", versionContent(1));
    Pipe stop;
    const pid_t reader = startChild([&] { return readForever(stop); });
    std::mt19937 random(20261121);
    std::uniform_int_distribution<int> microseconds(0, 4000);
    int leftovers = 0;
    for (int round = 0; round < kills && !HasFatalFailure(); ++round) {
        killOneSave(static_cast<unsigned>(round) * 100, std::chrono::microseconds(microseconds(random)));
        const std::vector<std::string> names = folder.names();
        leftovers += static_cast<int>(names.size()) - 1;
        if (names.size() > 1) {
            EXPECT_EQ(names, (std::vector<std::string>{".A.kqp.saving", "A.kqp"}));
        }
        if (round % 4 != 0)
            continue; // the next save meets what is left
        ASSERT_TRUE(sweepLeftover(real, path).ok());
        EXPECT_EQ(folder.names(), only("A.kqp"));
    }
    stop.closeEnd(1);
    EXPECT_EQ(exitCode(reader), allWhole);
    EXPECT_GT(leftovers, kills / 20) << "the kills have to meet saves, not the pauses between them";
    RecordProperty("leftovers", leftovers);
}

TEST_F(SaveKill, twoProcessesEditingOneFile_loseNoUpdate) {
    folder.write("A.kqp", "0");
    Pipe start;
    const pid_t first = startChild([&] { return edit(start); });
    const pid_t second = startChild([&] { return edit(start); });
    start.closeEnd(1); // both go
    EXPECT_EQ(exitCode(first), 0);
    EXPECT_EQ(exitCode(second), 0);
    EXPECT_EQ(folder.read("A.kqp"), std::to_string(2 * editsEach));
    EXPECT_EQ(folder.names(), only("A.kqp"));
}

} // namespace
} // namespace ryv::test
