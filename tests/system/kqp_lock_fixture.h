// The program "kqp" and files that other processes have locked.
#pragma once

#include "bridge/platform.h"
#include "embedded/os/posix_platform.h"
#include "manager/virtual_file_locker.h"
#include "tests/support/fork.h"
#include "tests/system/kqp_fixture.h"

namespace ryv::test {

/// Somebody who is not the current user, on another computer.
class Eve final : public Identity {
public:
    CString userName() override { return u"eve"; }
    CString fullUserName() override { return {}; }
    CString computerName() override { return u"BOX"; }
};

class KqpLockTest : public KqpTest {
protected:
    KqpLockTest() { setPlatform(&machine.platform()); }
    ~KqpLockTest() override {
        locker.unlockAllFiles();
        setPlatform(nullptr);
    }

    /// Takes the lock of a file in the folder, in this process or in a child; `holder` for another than the
    /// current user, `text` to replace what the lock file says.
    bool lock(const std::string& name, Identity* holder = nullptr, const std::string& text = {}) {
        if (holder)
            machine.platform().os.identity = holder;
        const bool locked = locker.lockFile(folder.module(nameFromBytes(name)));
        if (!text.empty())
            folder.write(name + ".FLL", text);
        return locked;
    }
    bool unlock(const std::string& name) { return locker.unlockFile(folder.module(nameFromBytes(name))); }

    drafta::PosixPlatform machine;
    RyvPrmVirtualFileLocker locker;
};

} // namespace ryv::test
