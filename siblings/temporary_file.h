// The temporary file of a save: a file of a known name that only its maker writes into, and that others
// remove only when its maker is gone.
#pragma once

#include "siblings/dangling_link.h"
#include "siblings/open_file.h"

#include <functional>

namespace ryv {

enum class Leftover {
    gone,  ///< there is no file any more, or there was none
    inUse, ///< somebody holds its lock
    untold ///< the file system has no locks to ask, or having the lock was not enough
};

/// Whether a file whose lock is held here, and which stands at its path, may be removed. Asked where having
/// the lock is not enough.
using MayRemove = std::function<bool(OpenFile& file)>;

/// Removes the file at `path` when its lock can be had within `wait`. Only after the lock is held does a
/// comparison with the path tell whether this is still the file that was opened: its maker may have renamed
/// it over the target, or another process may have removed it and made the next one. Files `inUse` or
/// `untold` stay, which is no failure.
FileStatus removeUnlocked(Files& files, CStringView path, std::chrono::milliseconds wait, Leftover& result,
    const MayRemove& mayRemove = {});

/// The temporary file of one save: made and locked, filled, then renamed away, or removed at the end of its
/// life.
class TemporaryFile {
public:
    TemporaryFile(Files& files, CString path)
        : files_(files), path_(std::move(path)), file_(files), danglingLink_(files, path_) {}
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() { discard(); }

    /// Makes the file and takes its lock, waiting for others; `busy` when they took too long.
    FileStatus make();

    /// Puts the file in the place of `target`. A share may refuse that while somebody has the target open:
    /// tries for a fifth of a second.
    FileStatus renameTo(CStringView target);

    OpenFile& file() noexcept { return file_; }
    const CString& path() const noexcept { return path_; }
    /// Whether a failure to make it is one of this file rather than of the folder it was to be made in.
    bool concerned() const noexcept { return concerned_; }

private:
    FileStatus tryToMake(std::chrono::milliseconds wait, bool& again);
    FileStatus own(std::chrono::milliseconds wait);
    void discard();

    Files& files_;
    CString path_;
    OpenFile file_;
    bool owned_ = false;     // it stands at path_, and nobody else may remove or rename it
    bool concerned_ = false; // a file stands, or stood, at path_
    DanglingLink danglingLink_;
};

} // namespace ryv
