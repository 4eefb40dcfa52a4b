#include "programs/drafta/history_file.h"

#include <fcntl.h>
#include <filesystem>
#include <sys/file.h>
#include <unistd.h>

namespace drafta {

namespace {

constexpr int keptLines = 1000;

History* makeHistory() {
    History* const made = history_init();
    HistEvent event{};
    history(made, &event, H_SETSIZE, keptLines);
    history(made, &event, H_SETUNIQUE, 1);
    return made;
}

/// The file, locked against other sessions for as long as the object lives.
class LockedFile {
public:
    LockedFile(const std::string& file, int flags, int lock)
        : descriptor_(::open(file.c_str(), flags | O_CLOEXEC, 0600)) {
        isLocked_ = descriptor_ != -1 && ::flock(descriptor_, lock) == 0;
    }
    LockedFile(const LockedFile&) = delete;
    LockedFile& operator=(const LockedFile&) = delete;
    ~LockedFile() {
        if (descriptor_ != -1)
            ::close(descriptor_);
    }
    bool isLocked() const noexcept { return isLocked_; }

private:
    int descriptor_;
    bool isLocked_;
};

void load(History* into, const std::string& file) {
    HistEvent event{};
    history(into, &event, H_LOAD, file.c_str());
}

} // namespace

HistoryFile::HistoryFile(std::string file) : file_(std::move(file)), history_(makeHistory()) {
    const LockedFile locked(file_, O_RDONLY, LOCK_SH); // not while another session writes it
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
    std::error_code ignored;
    std::filesystem::create_directories(std::filesystem::path(file_).parent_path(), ignored);
    const LockedFile locked(file_, O_RDWR | O_CREAT, LOCK_EX);
    if (!locked.isLocked())
        return;
    History* const merged = makeHistory();
    load(merged, file_);
    HistEvent event{};
    for (const std::string& line : added_)
        history(merged, &event, H_ENTER, line.c_str());
    history(merged, &event, H_SAVE, file_.c_str());
    history_end(merged);
}

} // namespace drafta
