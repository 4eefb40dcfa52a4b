// The frame around every change of a project that the tree makes: locks, lets change, writes, and unlocks
// however the change ends.
#pragma once

#include "base/strings.h"
#include "ui/tree/at_work.h"

#include <memory>

namespace ryv {

class CProjectTree;
class RyvPrmProject;

/// One change of one open project. The project is known by its ID and looked up again at each step; when it
/// was closed meanwhile, the step fails and the change is over. Every step but project() calls
/// LISP or asks the user, so rows, items and details found before it are looked up again after it. Main
/// thread only; the tree outlives it.
class ProjectWork {
public:
    ProjectWork(CProjectTree& tree, CStringView projectId);
    ProjectWork(const ProjectWork&) = delete;
    ProjectWork& operator=(const ProjectWork&) = delete;
    /// Unlocks what is still locked, also when it goes because something threw.
    ~ProjectWork();

    const CString& projectId() const noexcept { return projectId_; }

    /// Locks the project file and those drawings that will be written themselves (renamed, say); of all other
    /// files of the project it is only asked whether somebody works on them. False: nothing is locked, and
    /// the tree's notice line says who is in the way, or what is missing.
    [[nodiscard]] bool lock(const CStringArray& drawings = {});

    /// Locks one more drawing. A long row of drawings is locked one at a time, since a lock is an open file.
    /// False, with a notice, when somebody else works on it; what was locked before stays locked.
    [[nodiscard]] bool lockDrawing(const CString& drawing);
    void unlockDrawing(const CString& drawing);

    /// Unlocks everything, before the end.
    void unlock();

    /// The project as long as it is open, else null. Whoever holds it keeps it alive, not open.
    std::shared_ptr<RyvPrmProject> project() const;

    /// Tells that what the change was about, or the project itself, is not there any more.
    void tellGone();

    /// Writes what was changed in memory and brings the rows up to date. False when the project was closed,
    /// or cannot be written: the user is told why, and project and rows are what the file says.
    bool write();

    /// The same after an operation of the project manager that writes on its own; `done` is its result, which
    /// may be false also because there was nothing to do.
    bool settle(bool done);
    /// Whether the last of these two put the change on disk, also when the project was closed right behind
    /// it.
    bool wasWritten() const noexcept { return written_; }

    /// Takes over what LISP has written into the project's file. False, with a notice, when it cannot be
    /// read.
    bool reRead();

private:
    bool lockFiles(const CStringList& files, bool looksOnly);
    void tellRefusal(const CStringList& files, bool looksOnly);
    void tellWriteFailure(const RyvPrmProject& project);
    CString projectName() const;

    CProjectTree& tree_;
    const AtWork atWork_;
    CString projectId_;
    CStringList locked_;
    bool written_ = false;
};

/// What a project's file says now, read apart from the open project; null when it cannot be read.
std::unique_ptr<RyvPrmProject> readAside(CStringView projectId);

} // namespace ryv
