// The files that a piece of work has locked, unlocked however the work ends.
#pragma once

#include "base/strings.h"

namespace ryv {

/// Locks through the package's lock check. Every step but the looks at what is known here calls LISP, so that
/// anything may have changed when it returns. Main thread only.
class FileLocks {
public:
    /// `projectId`: the project that the work is about; empty for none. It need not be open.
    explicit FileLocks(CStringView projectId = {}) : projectId_(projectId) {}
    FileLocks(const FileLocks&) = delete;
    FileLocks& operator=(const FileLocks&) = delete;
    /// Unlocks what is still locked, also when it goes because something threw.
    ~FileLocks();

    const CString& projectId() const noexcept { return projectId_; }

    /// Locks files that are to be written. False when one of them may not be worked on: none of them is
    /// locked then, what was locked before stays so, and refusal() says who is in the way, or what is
    /// missing. A drawing that is missing is in nobody's way.
    [[nodiscard]] bool lock(const CStringList& files);

    /// The same for files that are only looked at: it is asked whether somebody works on them, and project
    /// files among them are locked. Drawings may be protected.
    [[nodiscard]] bool check(const CStringList& files);

    /// Locks the project file and those drawings that will be written themselves; of all other files of the
    /// project it is only asked whether somebody works on them. False: nothing is locked any more.
    [[nodiscard]] bool lockProject(const CStringArray& drawings = {});

    /// Files that are not locked here are passed over.
    void unlock(CStringView file);
    void unlock();

    /// Why the last step was refused, fit to be shown; empty without a project manager.
    const CString& refusal() const noexcept { return refusal_; }
    /// The same as an item of a list of files that are passed over: "FILE: why".
    const CString& listedRefusal() const noexcept { return listedRefusal_; }

private:
    bool lockFiles(const CStringList& files, bool looksOnly);
    void noteRefusal(const CStringList& files, bool looksOnly);
    void refuse(int text, int listedText, const CString& file, const CString& why = {});

    CString projectId_;
    CStringList locked_;
    CString refusal_;
    CString listedRefusal_;
};

} // namespace ryv
