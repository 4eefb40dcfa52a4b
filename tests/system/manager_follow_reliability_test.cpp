// A project manager that follows a project which another process saves again and again, by the project
// filer's way and in place, as editors do.
#include "model/kqp_filer.h"
#include "tests/support/fork.h"
#include "tests/support/random.h"
#include "tests/system/real_manager.h"

#include <atomic>
#include <sys/mman.h>
#include <thread>

namespace ryv::test {
namespace {

using std::chrono::milliseconds;

#if defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define RYV_SLOWED_BY_SANITIZERS
#endif
#endif

/// How long after a save its content may be in memory: the quiet period and as much again and a half.
#ifdef RYV_SLOWED_BY_SANITIZERS
constexpr milliseconds inTime{1000}; // four times as long: everything is slower, and tests run side by side
#else
constexpr milliseconds inTime{250};
#endif

constexpr unsigned savesInBurst = 25;

/// The drawings of a state; all of them follow from its number, so what was read says whether it is whole.
std::vector<CString> drawingsOf(unsigned number) {
    std::vector<CString> names;
    for (unsigned i = 0; i < 200 + number % 50; ++i)
        names.push_back(u"state " + toText(number) + u" drawing " + toText(i) + u".dwg");
    return names;
}

std::string textOf(unsigned number) {
    std::string text = "*[1]" + std::to_string(number) + "\n";
    for (const CString& name : drawingsOf(number))
        text += toUtf8(name) + "\n";
    return text;
}

void sleepFor(std::size_t time) {
    std::this_thread::sleep_for(milliseconds(time));
}

/// What the writer tells the reader, in memory of both.
struct Shared {
    std::atomic<unsigned> inPlace{0}; ///< odd while the file is being written in place
    std::atomic<unsigned> saved{0};   ///< the state that a burst ended with
    std::atomic<std::chrono::steady_clock::time_point> savedAt{};
};

Shared& makeShared() {
    void* const memory =
        ::mmap(nullptr, sizeof(Shared), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED)
        throw std::runtime_error("no memory");
    return *new (memory) Shared; // unmapped with the process
}

class ManagerFollowReliability : public RealManager {
protected:
    ManagerFollowReliability() {
        folder.write("a.kqp", textOf(0));
        manager->openProject(id, true);
        recorder->during = [this](const std::string& event) {
            if (event.starts_with("preReRead"))
                inPlaceBefore = shared.inPlace;
            if (event.starts_with("reRead"))
                takeState();
        };
    }

    // The writer's side.
    int saveAll(unsigned saves);
    bool saveInPlace(const std::string& text);
    bool saveWithFiler(unsigned number);

    // The reader's side.
    void takeState();
    bool isWhole(unsigned number);
    void followBurst();

    Shared& shared = makeShared();
    Pipe go, ended;
    Random random{20'261'121};
    unsigned inPlaceBefore = 0;
    unsigned heard = 0; ///< the last whole state
    unsigned reReads = 0;
    unsigned halfWritten = 0; ///< read while they were being written in place, which nothing can prevent
    std::vector<milliseconds> times;
};

bool ManagerFollowReliability::saveInPlace(const std::string& text) {
    const std::size_t half = random.below(text.size());
    ++shared.inPlace;
    {
        std::ofstream file(folder.native("a.kqp"), std::ios::binary);
        file << text.substr(0, half) << std::flush;
        sleepFor(random.below(60)); // shorter than the quiet period
        file << text.substr(half);
    }
    ++shared.inPlace;
    return true;
}

bool ManagerFollowReliability::saveWithFiler(unsigned number) {
    RyvPrmProjectData data;
    data.setProjDescriptions({toText(number)});
    for (const CString& name : drawingsOf(number))
        data.addFile(std::make_unique<RyvPrmFileDetails>(folder.module(name)));
    return RyvPrmKQPFiler(id, true, true).writeProject(data);
}

/// Pauses between saves are now shorter, now longer than the quiet period.
int ManagerFollowReliability::saveAll(unsigned saves) {
    for (unsigned number = 1; number <= saves; ++number) {
        if (!(number % 2 == 0 ? saveInPlace(textOf(number)) : saveWithFiler(number)))
            return 1;
        if (number % savesInBurst != 0) {
            sleepFor(random.oneIn(8) ? 100 + random.below(60) : random.below(30));
            continue;
        }
        shared.savedAt = SteadyClock::now();
        shared.saved = number;
        ended.notify();
        if (!go.wait())
            return 2;
    }
    return 0;
}

bool ManagerFollowReliability::isWhole(unsigned number) {
    std::vector<CString> expected = drawingsOf(number);
    for (CString& name : expected)
        name = folder.module(name);
    return drawingNames(project().getProjectData()) == expected;
}

void ManagerFollowReliability::takeState() {
    ++reReads;
    const CStringList& lines = project().getProjectData().getProjDescriptions();
    const auto number = lines.empty() ? std::nullopt : parseInteger(lines.front());
    if (number && isWhole(static_cast<unsigned>(*number))) {
        EXPECT_GE(*number, heard) << "an older state came back";
        heard = static_cast<unsigned>(*number);
        return;
    }
    const bool beingWritten = inPlaceBefore % 2 == 1 || inPlaceBefore != shared.inPlace;
    EXPECT_TRUE(beingWritten) << "a broken project, though nobody was writing in place; behind state "
                              << heard;
    ++halfWritten;
}

void ManagerFollowReliability::followBurst() {
    bool over = false;
    loop.addDescriptor(ended.readEnd(), [&] {
        over = ended.wait();
        loop.removeDescriptor(ended.readEnd());
    });
    ASSERT_TRUE(waitFor([&] { return over; })) << "the writer failed";
    const unsigned last = shared.saved;
    ASSERT_TRUE(waitFor([&] { return heard == last; })) << "state " << last << " was not seen";
    times.push_back(std::chrono::ceil<milliseconds>(SteadyClock::now() - shared.savedAt.load()));
    go.notify();
}

TEST_F(ManagerFollowReliability, savedByAnotherProcess_seesNoBrokenProject_andTheLastStateInTime) {
    const unsigned bursts = wantsFullReliability() ? 40 : 6;
    const pid_t writer = startChild([&] { return saveAll(bursts * savesInBurst); });
    for (unsigned burst = 0; burst < bursts && !HasFatalFailure(); ++burst)
        followBurst();
    EXPECT_EQ(exitCode(writer), 0);
    EXPECT_GT(reReads, bursts) << "some have to happen within the bursts";
    // A busy machine with sanitizers may hold this process up for longer than a write takes; the full form,
    // which is run without them, makes no allowance.
    const bool full = wantsFullReliability();
    EXPECT_LE(halfWritten, full ? 0 : 1 + reReads / 10) << "a write under way has to put the re-read off";
    std::sort(times.begin(), times.end());
    EXPECT_LE(full ? times.back() : times.at(times.size() * 9 / 10), inTime);
    RecordProperty("saves", static_cast<int>(bursts * savesInBurst));
    RecordProperty("reReads", static_cast<int>(reReads));
    RecordProperty("readHalfWritten", static_cast<int>(halfWritten));
    RecordProperty("medianMilliseconds", static_cast<int>(times.at(times.size() / 2).count()));
    RecordProperty("longestMilliseconds", static_cast<int>(times.back().count()));
}

} // namespace
} // namespace ryv::test
