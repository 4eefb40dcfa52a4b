// The package's lock check, which its LISP code shares: who may work on a set of files now.
#pragma once

#include "base/strings.h"

namespace ryv {

class LockCheck {
public:
    virtual ~LockCheck() = default;

    /// Checks that nobody else works on any of the files and locks those that are free; the user is told of
    /// those that are not. The first flag is 1 at every caller, the second 0 where the files are to be
    /// changed and 1 where a drawing is looked at only; what else they mean is the library's own.
    ///
    /// True when the files may be worked on; the ones locked by this call are added to `locked` then. False
    /// when the check refuses; nothing has been locked.
    virtual bool LispCheckFileLockStatusAndLock(
        const CStringList& files, int firstFlag, int secondFlag, CStringList& locked) = 0;

    /// Unlocks files that the check has locked; others are passed over.
    virtual void LispUpdUnlockFiles(const CStringList& files) = 0;
};

/// Refuses every file, so that nothing is changed where nothing can be locked.
class NullLockCheck final : public LockCheck {
public:
    bool LispCheckFileLockStatusAndLock(const CStringList&, int, int, CStringList&) override { return false; }
    void LispUpdUnlockFiles(const CStringList&) override {}
};

} // namespace ryv
