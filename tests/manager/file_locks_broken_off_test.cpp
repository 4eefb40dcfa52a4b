// Locks when LISP is broken off in the middle of the lock check, which locks file by file.
#include "manager/file_locks.h"
#include "tests/support/memory_manager.h"

#include <stdexcept>

namespace ryv::test {
namespace {

/// Locks as the package does, until something comes in between.
class SlowLockCheck final : public LockCheck {
public:
    std::size_t ends = 0; ///< behind how many files
    bool throws = true;

    bool LispCheckFileLockStatusAndLock(const CStringList& files, int, int looks, CStringList&) override {
        std::size_t seen = 0;
        for (const CString& file : files) {
            if (seen++ == ends)
                break;
            if (looks == 0 || file.ends_with(u".kqp"))
                EXPECT_TRUE(GetProjectManager()->lockProjectFile(CStringView(file)));
        }
        if (throws)
            throw std::runtime_error("broken off");
        return false;
    }
    void LispUpdUnlockFiles(const CStringList&) override {}
};

class LocksBrokenOff : public MemoryManager {
protected:
    LocksBrokenOff() {
        surroundings.ports.services.lockCheck = &check;
        for (const CString& file : all)
            files.put(file, "content");
    }
    std::string locked() {
        std::string names;
        for (const CString& file : all)
            names += manager->isProjectFileLocked(CStringView(file)) ? toUtf8(file.substr(5, 1)) : "";
        return names;
    }

    const CStringList all = {path("a.kqp"), path("b.dwg"), path("c.dwg")};
    SlowLockCheck check;
};

TEST_F(LocksBrokenOff, filesLockedSoFar_areUnlocked_andThoseFromBeforeStay) {
    const struct {
        bool looksOnly;
        std::size_t ends;
        const char* before; ///< locked then, and afterwards
    } cases[] = {{false, 1, ""}, {false, 2, ""}, {false, 3, "b"}, {true, 2, ""}, {true, 3, "a"}};
    for (const auto& each : cases)
        for (const bool throws : {true, false}) {
            check.ends = each.ends;
            check.throws = throws;
            for (const CString& file : all)
                if (std::string_view(each.before) == toUtf8(file.substr(5, 1)))
                    EXPECT_TRUE(manager->lockProjectFile(CStringView(file)));
            {
                FileLocks locks;
                bool done = false;
                try {
                    done = each.looksOnly ? locks.check(all) : locks.lock(all);
                } catch (const std::runtime_error&) {
                }
                EXPECT_FALSE(done);
                EXPECT_EQ(locked(), each.before) << each.ends << throws;
            }
            for (const CString& file : all)
                manager->unlockProjectFile(CStringView(file));
        }
}

} // namespace
} // namespace ryv::test
