// The frame around every change of a project that the tree makes: locks, lets change, writes, and unlocks
// however the change ends.
#pragma once

#include "manager/file_locks.h"
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

    const CString& projectId() const noexcept { return locks_.projectId(); }

    /// Locks the project file and those drawings that will be written themselves (renamed, say); of all other
    /// files of the project it is only asked whether somebody works on them. False: nothing is locked, and
    /// the tree's notice line says who is in the way, or what is missing.
    [[nodiscard]] bool lock(const CStringArray& drawings = {});

    /// Locks one more drawing. A long row of drawings is locked one at a time, since a lock is an open file.
    /// False when it cannot be locked, with the reason in listedRefusal(); what was locked before stays
    /// locked.
    [[nodiscard]] bool lockDrawing(const CString& drawing) { return locks_.lock({drawing}); }
    const CString& listedRefusal() const noexcept { return locks_.listedRefusal(); }
    void unlockDrawing(const CString& drawing) { locks_.unlock(drawing); }

    /// Unlocks everything, before the end; the end does so too, also when something throws.
    void unlock() { locks_.unlock(); }

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
    void tellRefusal();
    void tellWriteFailure(const RyvPrmProject& project);
    CString projectName() const;

    CProjectTree& tree_;
    const AtWork atWork_;
    FileLocks locks_;
    bool written_ = false;
};

/// What a project's file says now, read apart from the open project; null when it cannot be read.
std::unique_ptr<RyvPrmProject> readAside(CStringView projectId);

} // namespace ryv
