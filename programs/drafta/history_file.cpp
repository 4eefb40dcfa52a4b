#include "programs/drafta/history_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <thread>

namespace drafta {

namespace {

using std::chrono::milliseconds;

constexpr int keptLines = 1000;
constexpr milliseconds patience{500}; // for a session that has stopped while it saves
constexpr milliseconds pause{10};

History* makeHistory() {
    History* const made = history_init();
    HistEvent event{};
    history(made, &event, H_SETSIZE, keptLines);
    history(made, &event, H_SETUNIQUE, 1);
    return made;
}

bool isRegular(const std::string& file) {
    struct stat status {};
    return ::stat(file.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

/// Files are renamed into place, so what is read is whole, whatever other sessions do. Anything else at that
/// name, which might keep the reader waiting, is left alone.
void load(History* into, const std::string& file) {
    HistEvent event{};
    if (isRegular(file))
        history(into, &event, H_LOAD, file.c_str());
}

/// The file, made when it is missing and locked against other sessions for as long as the object lives.
class LockedFile {
public:
    explicit LockedFile(const std::string& file) {
        const auto end = std::chrono::steady_clock::now() + patience;
        for (open(file); isOpen(); open(file)) {
            isLocked_ = ::flock(descriptor_, LOCK_EX | LOCK_NB) == 0 && standsAt(file);
            if (isLocked_ || std::chrono::steady_clock::now() >= end)
                return;
            std::this_thread::sleep_for(pause);
        }
    }
    LockedFile(const LockedFile&) = delete;
    LockedFile& operator=(const LockedFile&) = delete;
    ~LockedFile() { close(); }
    bool isLocked() const noexcept { return isLocked_; }

private:
    void open(const std::string& file) {
        close();
        descriptor_ = ::open(file.c_str(), O_RDWR | O_CREAT | O_NONBLOCK | O_CLOEXEC, 0600);
    }
    bool isOpen() const {
        struct stat status {};
        return descriptor_ != -1 && ::fstat(descriptor_, &status) == 0 && S_ISREG(status.st_mode);
    }
    /// Another session may have put a new file at the name since this one was opened; locks are on files.
    bool standsAt(const std::string& file) const {
        struct stat own {
        }, named{};
        return ::fstat(descriptor_, &own) == 0 && ::stat(file.c_str(), &named) == 0 &&
               own.st_dev == named.st_dev && own.st_ino == named.st_ino;
    }
    void close() const {
        if (descriptor_ != -1)
            ::close(descriptor_);
    }

    int descriptor_ = -1;
    bool isLocked_ = false;
};

/// False when the file is not whole.
bool write(History* lines, const std::string& file) {
    const int descriptor = ::open(file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    std::FILE* const stream = descriptor == -1 ? nullptr : ::fdopen(descriptor, "w");
    if (!stream)
        return false;
    HistEvent event{};
    const bool saved = history(lines, &event, H_SAVE_FP, stream) != -1 && std::ferror(stream) == 0 &&
                       std::fflush(stream) == 0 && ::fsync(descriptor) == 0;
    return std::fclose(stream) == 0 && saved;
}

} // namespace

HistoryFile::HistoryFile(std::string file) : file_(std::move(file)), history_(makeHistory()) {
    load(history_, file_);
}

HistoryFile::~HistoryFile() {
    if (!added_.empty())
        save();
    history_end(history_);
}

void HistoryFile::add(const std::string& line) {
    HistEvent event{};
    history(history_, &event, H_ENTER, line.c_str());
    added_.push_back(line);
}

void HistoryFile::save() {
    std::error_code ignored, failed;
    std::filesystem::create_directories(std::filesystem::path(file_).parent_path(), ignored);
    const LockedFile locked(file_);
    const std::string file = std::filesystem::canonical(file_, failed).string(); // keeps a symbolic link
    if (!locked.isLocked() || failed)
        return;
    const std::unique_ptr<History, decltype(&history_end)> merged(makeHistory(), history_end);
    load(merged.get(), file);
    HistEvent event{};
    for (const std::string& line : added_)
        history(merged.get(), &event, H_ENTER, line.c_str());
    const std::string whole = file + ".new";
    std::filesystem::remove(whole, ignored); // what a killed session left
    if (!write(merged.get(), whole) || std::rename(whole.c_str(), file.c_str()) != 0)
        std::filesystem::remove(whole, ignored);
}

} // namespace drafta
