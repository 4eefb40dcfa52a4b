#include "tests/support/fault_files.h"

#include <algorithm>

namespace ryv::test {

void FaultFiles::arm(const Fault& fault) {
    disarm();
    fault_ = fault;
    calls_.clear();
}

void FaultFiles::disarm() {
    fault_.reset();
    seen_ = 0;
    fired_ = false;
}

/// Counts a call, and says whether it is one that has to fail.
bool FaultFiles::isDue(FileCall call) {
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
FileStatus FaultFiles::pass(FileCall call, Forward forward) {
    return isDue(call) ? FileStatus{fault_->error, 0} : forward();
}

FileStatus FaultFiles::open(CStringView path, OpenMode mode, FileHandle& handle) {
    handle = FileHandle::none;
    return pass(FileCall::open, [&] { return real_->open(path, mode, handle); });
}

FileStatus FaultFiles::read(FileHandle handle, std::span<char> buffer, std::size_t& count) {
    count = 0;
    return pass(FileCall::read, [&] { return real_->read(handle, buffer, count); });
}

FileStatus FaultFiles::write(FileHandle handle, std::string_view bytes, std::size_t& count) {
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

FileStatus FaultFiles::truncate(FileHandle handle, std::uint64_t size) {
    return pass(FileCall::truncate, [&] { return real_->truncate(handle, size); });
}

FileStatus FaultFiles::sync(FileHandle handle) {
    return pass(FileCall::sync, [&] { return real_->sync(handle); });
}

FileStatus FaultFiles::close(FileHandle handle) {
    const bool due = isDue(FileCall::close);
    const FileStatus status = real_->close(handle);
    return due ? FileStatus{fault_->error, 0} : status;
}

FileStatus FaultFiles::rename(CStringView from, CStringView to) {
    return pass(FileCall::rename, [&] { return real_->rename(from, to); });
}

FileStatus FaultFiles::remove(CStringView path) {
    return pass(FileCall::remove, [&] { return real_->remove(path); });
}

FileStatus FaultFiles::syncFolder(CStringView folder) {
    return pass(FileCall::syncFolder, [&] { return real_->syncFolder(folder); });
}

FileStatus FaultFiles::information(CStringView path, FileInformation& information) {
    return pass(FileCall::information, [&] { return real_->information(path, information); });
}

FileStatus FaultFiles::information(FileHandle handle, FileInformation& information) {
    return pass(FileCall::information, [&] { return real_->information(handle, information); });
}

FileStatus FaultFiles::lock(FileHandle handle, std::chrono::milliseconds patience) {
    return pass(FileCall::lock, [&] { return real_->lock(handle, patience); });
}

FileStatus FaultFiles::copyAttributes(CStringView from, FileHandle to) {
    return pass(FileCall::copyAttributes, [&] { return real_->copyAttributes(from, to); });
}

FileStatus FaultFiles::resolve(CStringView path, CString& resolved) {
    return pass(FileCall::resolve, [&] { return real_->resolve(path, resolved); });
}

} // namespace ryv::test
