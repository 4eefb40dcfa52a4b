// One file on the watch list: what is known of it, and what to tell when that changes.
#pragma once

#include "embedded/monitor/file_mark.h"
#include "platform/os/file_monitor.h"

#include <utility>
#include <vector>

namespace drafta {

/// How a file looks at a moment; nothing when the system could not tell.
struct FileSight {
    bool isThere = false;
    ryv::FileInformation information; ///< when it is there
};

struct WatchedFile {
    /// How much reason events gave to look at the file.
    enum class Hint { none, glance, look };

    ryv::CString path;       ///< as it was added
    std::string native;      ///< where it was found last, or would be
    std::uint64_t trail = 0; ///< its watches
    FileMark mark;
    bool wasFresh = false; ///< when the mark was taken
    Hint hint = Hint::none;
    bool written = false;      ///< an event said that the content changed, whatever the file looks like
    bool nameGone = false;     ///< events said that the name was removed, and not yet that it is taken again
    bool renewed = false;      ///< events said that the name was removed and then taken again
    bool alwaysPolled = false; ///< whatever watches there are
    bool polled = false;

    FileSight sight;          ///< the last one; when the file is gone, the information is still the last
    bool toldDeleted = false; ///< and not told that it is there again

    void setMark(const FileMark& now) noexcept {
        mark = now;
        wasFresh = isFresh(now);
    }

    /// Events about the file's name. One that is taken without having been removed was replaced in one step.
    void nameRemoved() noexcept { nameGone = true; }
    void nameTaken() noexcept { renewed = std::exchange(nameGone, false) || renewed; }

    /// Takes in a new sight and gives what there is to tell, in order. A file that is there again is also one
    /// whose content changed, when it was told to be deleted.
    std::vector<ryv::FileChange> see(const FileSight& now);

private:
    void appendChanges(const FileSight& now, std::vector<ryv::FileChange>& changes);
};

} // namespace drafta
