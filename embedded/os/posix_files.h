// The files port on POSIX systems.
#pragma once

#include "embedded/os/path_mapper.h"
#include "platform/os/files.h"

namespace drafta {

/// The primitives as system calls. Calls that a signal interrupts are repeated. Opening never waits for the
/// other end of a pipe: what turns out to be no regular file is closed again and refused, with `isFolder` or
/// `notRegular`.
class PosixFiles final : public ryv::Files {
public:
    /// The mapper turns paths into native ones; it has to outlive this object.
    explicit PosixFiles(const PathMapper& mapper) noexcept : mapper_(&mapper) {}

    ryv::FileStatus open(ryv::CStringView path, ryv::OpenMode mode, ryv::FileHandle& handle) override;
    ryv::FileStatus read(ryv::FileHandle handle, std::span<char> buffer, std::size_t& count) override;
    ryv::FileStatus write(ryv::FileHandle handle, std::string_view bytes, std::size_t& count) override;
    ryv::FileStatus truncate(ryv::FileHandle handle, std::uint64_t size) override;
    ryv::FileStatus sync(ryv::FileHandle handle) override;
    ryv::FileStatus close(ryv::FileHandle handle) override;
    /// A name that differs from the old one in nothing but case is taken as spelled.
    ryv::FileStatus rename(ryv::CStringView from, ryv::CStringView to) override;
    ryv::FileStatus remove(ryv::CStringView path) override;
    ryv::FileStatus syncFolder(ryv::CStringView folder) override;
    ryv::FileStatus information(ryv::CStringView path, ryv::FileInformation& information) override;
    ryv::FileStatus information(ryv::FileHandle handle, ryv::FileInformation& information) override;
    ryv::FileStatus lock(ryv::FileHandle handle, std::chrono::milliseconds patience) override;
    ryv::FileStatus markLock(ryv::FileHandle handle) override;
    ryv::FileStatus isLockMarked(ryv::FileHandle handle, bool& marked) override;
    ryv::FileStatus mayLockBeLocal(ryv::FileHandle handle, bool& local) override;
    ryv::FileStatus copyAttributes(ryv::CStringView from, ryv::FileHandle to) override;
    ryv::FileStatus copyReadRights(ryv::CStringView from, ryv::FileHandle to) override;
    ryv::FileStatus setReadOnly(ryv::CStringView path, bool readOnly) override;
    /// The mark is the extended attribute "user.hidden".
    ryv::FileStatus setHidden(ryv::CStringView path, bool hidden) override;
    ryv::FileStatus createFolder(ryv::CStringView path) override;
    ryv::FileStatus checkFolderWritable(ryv::CStringView folder) override;
    ryv::FileStatus resolve(ryv::CStringView path, ryv::CString& resolved) override;

private:
    const PathMapper* mapper_;
};

} // namespace drafta
