// A files port that forwards to another one and fails when it is told to.
#pragma once

#include "platform/os/files.h"

#include <limits>
#include <optional>
#include <vector>

namespace ryv::test {

enum class FileCall {
    open,
    read,
    write,
    truncate,
    sync,
    close,
    rename,
    remove,
    syncFolder,
    information,
    lock,
    copyAttributes,
    resolve
};

struct Fault {
    FileError error = FileError::io;
    std::size_t number = 1;                      ///< the how many-th of the calls concerned, from 1
    std::optional<FileCall> kind = std::nullopt; ///< calls concerned; nothing: all
    bool lasting = false;                        ///< the later ones fail too
    bool shortWrite = false;                     ///< instead of failing, a write writes half and succeeds
};

/// A call that fails does nothing, except that a failing close closes all the same. Counting starts with
/// arm().
class FaultFiles final : public Files {
public:
    explicit FaultFiles(Files& real) noexcept : real_(&real) {}
    FaultFiles(const FaultFiles&) = delete;
    FaultFiles& operator=(const FaultFiles&) = delete;

    void arm(const Fault& fault);
    void disarm();
    bool fired() const noexcept { return fired_; }

    /// From now on the disk takes so many more bytes: the write that meets the end is short, the next one
    /// fails.
    void limitSpace(std::size_t bytes) noexcept { space_ = bytes; }

    /// The calls since arm() or the start, in order.
    const std::vector<FileCall>& calls() const noexcept { return calls_; }

    FileStatus open(CStringView path, OpenMode mode, FileHandle& handle) override;
    FileStatus read(FileHandle handle, std::span<char> buffer, std::size_t& count) override;
    FileStatus write(FileHandle handle, std::string_view bytes, std::size_t& count) override;
    FileStatus truncate(FileHandle handle, std::uint64_t size) override;
    FileStatus sync(FileHandle handle) override;
    FileStatus close(FileHandle handle) override;
    FileStatus rename(CStringView from, CStringView to) override;
    FileStatus remove(CStringView path) override;
    FileStatus syncFolder(CStringView folder) override;
    FileStatus information(CStringView path, FileInformation& information) override;
    FileStatus information(FileHandle handle, FileInformation& information) override;
    FileStatus lock(FileHandle handle, std::chrono::milliseconds patience) override;
    FileStatus copyAttributes(CStringView from, FileHandle to) override;
    FileStatus resolve(CStringView path, CString& resolved) override;

private:
    bool isDue(FileCall call);
    template <class Forward>
    FileStatus pass(FileCall call, Forward forward);

    Files* real_;
    std::optional<Fault> fault_;
    std::size_t seen_ = 0;
    bool fired_ = false;
    std::size_t space_ = std::numeric_limits<std::size_t>::max();
    std::vector<FileCall> calls_;
};

} // namespace ryv::test
