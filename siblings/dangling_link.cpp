#include "siblings/dangling_link.h"

#include "base/fold.h"

namespace ryv {

namespace {

/// Of links in a circle the system says that the name is a bad one.
bool leadsNowhere(FileError error) {
    return error == FileError::missing || error == FileError::badName;
}

} // namespace

/// A file that is made and removed again and again is missing at some moments too, and must never be removed
/// for that: only a link leads to another path than its own.
bool DanglingLink::stands() {
    FileInformation information;
    if (!leadsNowhere(files_.information(path_, information).error))
        return false;
    CString resolved;
    const FileStatus status = files_.resolve(path_, resolved);
    return leadsNowhere(status.error) || (status.ok() && !equalNoCase(resolved, path_));
}

FileStatus DanglingLink::look() {
    constexpr int certain = 4;
    seen_ = stands() ? seen_ + 1 : 0;
    if (seen_ < certain)
        return {};
    seen_ = 0;
    const FileStatus status = files_.remove(path_);
    return status.error == FileError::missing ? FileStatus{} : status;
}

} // namespace ryv
