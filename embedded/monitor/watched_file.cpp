#include "embedded/monitor/watched_file.h"

#include <utility>

namespace drafta {

using ryv::FileChange;
using ryv::FileInformation;

namespace {

bool isSameContent(const FileInformation& a, const FileInformation& b) {
    return a.device == b.device && a.inode == b.inode && a.size == b.size &&
           a.modifiedNanoseconds == b.modifiedNanoseconds;
}

} // namespace

std::vector<FileChange> WatchedFile::see(const FileSight& now) {
    const bool wasWritten = std::exchange(written, false);
    const bool wasThere = std::exchange(sight.isThere, now.isThere);
    if (!now.isThere) {
        toldDeleted = toldDeleted || wasThere;
        return wasThere ? std::vector{FileChange::deleted} : std::vector<FileChange>();
    }
    std::vector<FileChange> changes;
    const FileInformation before = std::exchange(sight.information, now.information);
    const bool wasKnown = std::exchange(toldDeleted, false) || wasThere;
    if (!wasThere)
        changes.push_back(FileChange::created);
    if (wasKnown && (!wasThere || wasWritten || !isSameContent(before, now.information)))
        changes.push_back(FileChange::contentChanged);
    if (wasKnown && before.readOnly != now.information.readOnly)
        changes.push_back(now.information.readOnly ? FileChange::madeReadOnly : FileChange::madeWritable);
    return changes;
}

} // namespace drafta
