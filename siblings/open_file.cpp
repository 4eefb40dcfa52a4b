#include "siblings/open_file.h"

namespace ryv {

namespace {
constexpr FileStatus noProgress{FileError::io, 0};
constexpr FileStatus notOpen{FileError::other, 0};
} // namespace

OpenFile& OpenFile::operator=(OpenFile&& other) noexcept {
    if (this != &other) {
        static_cast<void>(close());
        files_ = other.files_;
        handle_ = std::exchange(other.handle_, FileHandle::none);
    }
    return *this;
}

OpenFile::~OpenFile() {
    static_cast<void>(close());
}

FileStatus OpenFile::open(CStringView path, OpenMode mode) {
    static_cast<void>(close());
    FileHandle handle = FileHandle::none;
    const FileStatus status = files_->open(path, mode, handle);
    if (status.ok())
        handle_ = handle;
    return status;
}

FileStatus OpenFile::close() {
    if (!isOpen())
        return {};
    return files_->close(std::exchange(handle_, FileHandle::none));
}

FileStatus OpenFile::read(std::span<char> buffer, std::size_t& count) {
    count = 0;
    if (!isOpen())
        return notOpen;
    while (count < buffer.size()) {
        std::size_t step = 0;
        if (const FileStatus status = files_->read(handle_, buffer.subspan(count), step); !status.ok())
            return status;
        if (step == 0)
            break;
        count += step;
    }
    return {};
}

FileStatus OpenFile::writeAll(std::string_view bytes) {
    if (!isOpen())
        return notOpen;
    while (!bytes.empty()) {
        std::size_t step = 0;
        if (const FileStatus status = files_->write(handle_, bytes, step); !status.ok())
            return status;
        if (step == 0 || step > bytes.size())
            return noProgress;
        bytes.remove_prefix(step);
    }
    return {};
}

FileStatus OpenFile::truncate(std::uint64_t size) {
    return isOpen() ? files_->truncate(handle_, size) : notOpen;
}

FileStatus OpenFile::sync() {
    return isOpen() ? files_->sync(handle_) : notOpen;
}

FileStatus OpenFile::lock(std::chrono::milliseconds patience) {
    return isOpen() ? files_->lock(handle_, patience) : notOpen;
}

FileStatus OpenFile::information(FileInformation& information) {
    return isOpen() ? files_->information(handle_, information) : notOpen;
}

FileStatus isStillAt(Files& files, FileHandle handle, CStringView path, bool& same) {
    same = false;
    FileInformation open;
    if (const FileStatus status = files.information(handle, open); !status.ok())
        return status;
    FileInformation named;
    const FileStatus status = files.information(path, named);
    if (status.error == FileError::missing)
        return {};
    same = status.ok() && open.device == named.device && open.inode == named.inode;
    return status;
}

} // namespace ryv
