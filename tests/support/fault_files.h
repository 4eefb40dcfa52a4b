// A files port that forwards to another one and fails when it is told to.
#pragma once

#include "platform/os/files.h"

#include <algorithm>
#include <functional>
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
    markLock,
    isLockMarked,
    mayLockBeLocal,
    copyAttributes,
    copyReadRights,
    setReadOnly,
    setHidden,
    createFolder,
    checkFolderWritable,
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

    void arm(const Fault& fault) {
        disarm();
        fault_ = fault;
        calls_.clear();
    }
    void disarm() {
        fault_.reset();
        seen_ = 0;
        fired_ = false;
    }
    bool fired() const noexcept { return fired_; }
    /// From now on the disk takes so many more bytes: the write that meets the end is short, the next one
    /// fails.
    void limitSpace(std::size_t bytes) noexcept { space_ = bytes; }
    /// Makes the disk one whose locks do not reach other computers.
    bool locksAreLocal = false;
    /// The calls since arm() or the start, in order.
    const std::vector<FileCall>& calls() const noexcept { return calls_; }
    /// Runs in front of each call.
    std::function<void(FileCall)> watch = [](FileCall) {};

    FileStatus open(CStringView path, OpenMode mode, FileHandle& handle) override {
        handle = FileHandle::none;
        return pass(FileCall::open, [&] { return real_->open(path, mode, handle); });
    }
    FileStatus read(FileHandle handle, std::span<char> buffer, std::size_t& count) override {
        count = 0;
        return pass(FileCall::read, [&] { return real_->read(handle, buffer, count); });
    }
    FileStatus write(FileHandle handle, std::string_view bytes, std::size_t& count) override {
        count = 0;
        const bool due = isDue(FileCall::write);
        if (due && !fault_->shortWrite)
            return {fault_->error, 0};
        if (space_ == 0 && !bytes.empty())
            return {FileError::noSpace, 0};
        const std::size_t size = due ? bytes.size() / 2 : bytes.size();
        const FileStatus status = real_->write(handle, bytes.substr(0, std::min(size, space_)), count);
        space_ -= count;
        return status;
    }
    FileStatus close(FileHandle handle) override {
        const bool due = isDue(FileCall::close);
        const FileStatus status = real_->close(handle);
        return due ? FileStatus{fault_->error, 0} : status;
    }
    FileStatus truncate(FileHandle handle, std::uint64_t size) override {
        return pass(FileCall::truncate, [&] { return real_->truncate(handle, size); });
    }
    FileStatus sync(FileHandle handle) override {
        return pass(FileCall::sync, [&] { return real_->sync(handle); });
    }
    FileStatus rename(CStringView from, CStringView to) override {
        return pass(FileCall::rename, [&] { return real_->rename(from, to); });
    }
    FileStatus remove(CStringView path) override {
        return pass(FileCall::remove, [&] { return real_->remove(path); });
    }
    FileStatus syncFolder(CStringView folder) override {
        return pass(FileCall::syncFolder, [&] { return real_->syncFolder(folder); });
    }
    FileStatus information(CStringView path, FileInformation& found) override {
        return pass(FileCall::information, [&] { return real_->information(path, found); });
    }
    FileStatus information(FileHandle handle, FileInformation& found) override {
        return pass(FileCall::information, [&] { return real_->information(handle, found); });
    }
    FileStatus lock(FileHandle handle, std::chrono::milliseconds patience) override {
        return pass(FileCall::lock, [&] { return real_->lock(handle, patience); });
    }
    FileStatus markLock(FileHandle handle) override {
        return pass(FileCall::markLock, [&] { return real_->markLock(handle); });
    }
    FileStatus isLockMarked(FileHandle handle, bool& marked) override {
        marked = false;
        return pass(FileCall::isLockMarked, [&] { return real_->isLockMarked(handle, marked); });
    }
    FileStatus mayLockBeLocal(FileHandle handle, bool& local) override {
        const FileStatus status =
            pass(FileCall::mayLockBeLocal, [&] { return real_->mayLockBeLocal(handle, local); });
        local = local || locksAreLocal;
        return status;
    }
    FileStatus copyAttributes(CStringView from, FileHandle to) override {
        return pass(FileCall::copyAttributes, [&] { return real_->copyAttributes(from, to); });
    }
    FileStatus copyReadRights(CStringView from, FileHandle to) override {
        return pass(FileCall::copyReadRights, [&] { return real_->copyReadRights(from, to); });
    }
    FileStatus setReadOnly(CStringView path, bool readOnly) override {
        return pass(FileCall::setReadOnly, [&] { return real_->setReadOnly(path, readOnly); });
    }
    FileStatus setHidden(CStringView path, bool hidden) override {
        return pass(FileCall::setHidden, [&] { return real_->setHidden(path, hidden); });
    }
    FileStatus createFolder(CStringView path) override {
        return pass(FileCall::createFolder, [&] { return real_->createFolder(path); });
    }
    FileStatus checkFolderWritable(CStringView folder) override {
        return pass(FileCall::checkFolderWritable, [&] { return real_->checkFolderWritable(folder); });
    }
    FileStatus resolve(CStringView path, CString& resolved) override {
        return pass(FileCall::resolve, [&] { return real_->resolve(path, resolved); });
    }

private:
    /// Counts a call, and says whether it is one that has to fail.
    bool isDue(FileCall call) {
        watch(call);
        calls_.push_back(call);
        const bool wrongKind =
            fault_ && (fault_->kind ? *fault_->kind != call : fault_->shortWrite && call != FileCall::write);
        if (!fault_ || wrongKind)
            return false;
        ++seen_;
        const bool due = seen_ == fault_->number || (fault_->lasting && seen_ > fault_->number);
        fired_ = fired_ || due;
        return due;
    }
    template <class Forward>
    FileStatus pass(FileCall call, Forward forward) {
        return isDue(call) ? FileStatus{fault_->error, 0} : forward();
    }

    Files* real_;
    std::optional<Fault> fault_;
    std::size_t seen_ = 0;
    bool fired_ = false;
    std::size_t space_ = std::numeric_limits<std::size_t>::max();
    std::vector<FileCall> calls_;
};

} // namespace ryv::test
