#include "siblings/rename_file.h"

#include "base/fold.h"
#include "base/paths.h"

namespace ryv {

namespace {

bool isSame(const FileInformation& one, const FileInformation& other) noexcept {
    return one.device == other.device && one.inode == other.inode;
}

/// The new name, taken with an empty file, so that nobody else can take it any more.
class Reservation {
public:
    Reservation(Files& files, CStringView path) noexcept : files_(files), path_(path) {}

    FileStatus take() {
        FileHandle handle = FileHandle::none;
        if (const FileStatus status = files_.open(path_, OpenMode::createExclusive, handle); !status.ok())
            return status.error == FileError::isFolder ? FileStatus{FileError::exists, status.systemCode}
                                                       : status;
        const FileStatus known = files_.information(handle, file_);
        const FileStatus closed = files_.close(handle);
        if (!known.ok())
            static_cast<void>(files_.remove(path_));
        return known.ok() ? closed : known;
    }

    /// Whether nobody has written to the file or put another one in its place.
    bool isUntouched() const {
        FileInformation found;
        return files_.information(path_, found).ok() && isSame(found, file_) && found.size == 0;
    }

    void giveUp() const {
        if (isUntouched())
            static_cast<void>(files_.remove(path_));
    }

private:
    Files& files_;
    CStringView path_;
    FileInformation file_;
};

/// Succeeds for two spellings of one file.
FileStatus checkSame(Files& files, CStringView from, CStringView to) {
    FileInformation one;
    FileInformation other;
    if (const FileStatus status = files.information(from, one); !status.ok())
        return status;
    if (const FileStatus status = files.information(to, other); !status.ok())
        return status.error == FileError::missing ? FileStatus() : status;
    return {isSame(one, other) ? FileError::none : FileError::exists, 0};
}

FileStatus renameSpelling(Files& files, CStringView from, CStringView to) {
    const FileStatus status = checkSame(files, from, to);
    return status.ok() ? files.rename(from, to) : status;
}

/// The port can only rename and replace, so what is replaced is looked at once more just before.
FileStatus renameToFreeName(Files& files, CStringView from, CStringView to) {
    Reservation name(files, to);
    FileStatus status = name.take();
    if (status.error == FileError::exists)
        return status;
    if (status.ok())
        status = name.isUntouched() ? files.rename(from, to) : FileStatus{FileError::exists, 0};
    if (!status.ok())
        name.giveUp();
    return status;
}

} // namespace

FileStatus renameWithoutReplacing(Files& files, CStringView from, CStringView to) {
    const FileStatus renamed =
        equalNoCase(from, to) ? renameSpelling(files, from, to) : renameToFreeName(files, from, to);
    if (renamed.ok())
        static_cast<void>(files.syncFolder(paths::folderOf(to))); // some file systems cannot
    return renamed;
}

} // namespace ryv
