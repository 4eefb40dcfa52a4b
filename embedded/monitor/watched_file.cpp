#include "embedded/monitor/watched_file.h"
#include "platform/os/file_state.h"

#include <utility>

namespace drafta {

using ryv::FileChange;
using ryv::FileInformation;

std::vector<FileChange> WatchedFile::see(const FileSight& now) {
    std::vector<FileChange> changes;
    if (std::exchange(renewed, false) && sight.isThere && now.isThere)
        appendChanges({}, changes);
    appendChanges(now, changes);
    return changes;
}

void WatchedFile::appendChanges(const FileSight& now, std::vector<FileChange>& changes) {
    const bool wasThere = std::exchange(sight.isThere, now.isThere);
    if (wasThere != now.isThere)
        nameGone = false; // the sight was ahead of the events: what they say of this removal is known
    if (!now.isThere) {
        written = false;
        toldDeleted = toldDeleted || wasThere;
        if (wasThere)
            changes.push_back(FileChange::deleted);
        return;
    }
    const bool wasWritten = std::exchange(written, false);
    const FileInformation before = std::exchange(sight.information, now.information);
    const bool wasKnown = std::exchange(toldDeleted, false) || wasThere;
    if (!wasThere)
        changes.push_back(FileChange::created);
    if (wasKnown && (!wasThere || wasWritten || !isSameState(before, now.information)))
        changes.push_back(FileChange::contentChanged);
    if (wasKnown && before.readOnly != now.information.readOnly)
        changes.push_back(now.information.readOnly ? FileChange::madeReadOnly : FileChange::madeWritable);
}

} // namespace drafta
