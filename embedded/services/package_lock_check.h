// The lock check, which is a part of the package's LISP (package/locks.lsp).
#pragma once

#include "platform/host/lisp.h"
#include "platform/services/lock_check.h"

namespace drafta {

/// Refuses when there is no document, whose LISP it would be, or the package cannot check.
class PackageLockCheck final : public ryv::LockCheck {
public:
    /// `lisp` outlives the object.
    explicit PackageLockCheck(ryv::HostLisp& lisp) noexcept : lisp_(lisp) {}

    bool LispCheckFileLockStatusAndLock(
        const ryv::CStringList& files, int firstFlag, int secondFlag, ryv::CStringList& locked) override;
    void LispUpdUnlockFiles(const ryv::CStringList& files) override;

private:
    ryv::HostLisp& lisp_;
};

} // namespace drafta
