// Saving a file so that at every moment, also after a crash, a full disk or a power cut, its name leads to
// the old content or to the new one, whole.
//
// The new content goes to a temporary file of one fixed name in the same folder, which is locked for the time
// of the save, forced to the device and renamed over the old file. Only the one who made a temporary file
// ever writes into it: one that was left over by a killed process is removed and made anew, so that neither
// its owner nor its mode ends up on the saved file. Two processes that save the same file at the same time
// wait for each other.
#pragma once

#include "platform/os/files.h"
#include "siblings/file_content.h"

#include <optional>
#include <string_view>

namespace ryv {

struct SaveRequest {
    CString path;           ///< the file to write; symbolic links are followed, the link stays
    std::string_view bytes; ///< the whole new content; has to stay valid during the call
    /// The guard: the save fails with `changedOutside`, and leaves what is there, unless the file's content
    /// is what this says. Nothing: whatever is there is replaced.
    std::optional<Fingerprint> expected;
};

struct [[nodiscard]] SaveResult {
    FileStatus status;
    CString file;          ///< the path that a failure concerns; empty after success
    Fingerprint written;   ///< of the new file; meaningful when `replaced`
    bool replaced = false; ///< the new content is in place; can be true beside a failure, see saveAtomically

    bool ok() const noexcept { return status.ok(); }
};

/// Saves. An old file's mode, group and extended attributes are kept as far as the user may; a new file gets
/// the user's usual mode. Nothing is made when the target is read-only (`readOnly`, also for a user who could
/// overrule it), a folder (`isFolder`) or another thing that is no regular file (`notRegular`). `busy`:
/// another process kept the temporary file for five seconds, or the system refused to replace the file while
/// somebody uses it.
///
/// After a failure the old file is untouched, with one exception: when forcing the folder to the device or
/// closing failed behind the renaming, the new file is in place and whole (`replaced`), but may not survive a
/// power cut. The temporary file is gone after every return, unless removing it fails.
SaveResult saveAtomically(Files& files, const SaveRequest& request);

/// The path of the temporary file that a save of `path` uses, in the same folder. `path` is taken as it
/// stands: of a symbolic link ask for what Files::resolve makes of it. A name too long to be extended gets a
/// short one made from its hash without regard to case.
CString temporaryNameFor(CStringView path);

/// Removes the temporary file that a killed save of `path` left behind. One whose lock somebody holds is a
/// save under way and stays; both that and the absence of such a file are successes. `unsupported`: one is
/// there, and the file system has no locks that would tell whether it is in use, so it stays.
FileStatus sweepLeftover(Files& files, CStringView path);

} // namespace ryv
