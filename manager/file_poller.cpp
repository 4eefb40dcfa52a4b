#include "manager/file_poller.h"

#include "base/fold.h"
#include "bridge/platform.h"
#include "platform/os/file_state.h"

#include <algorithm>

namespace ryv {

namespace {

constexpr std::uint32_t pollTimer = 1;

} // namespace

FilePoller::~FilePoller() {
    if (window_ != WindowHandle::none)
        platform().os.messages->destroyWindow(window_);
}

void FilePoller::add(CStringView path) {
    if (find(path) != watched_.end())
        return;
    Watched& added = watched_.emplace_back();
    added.path = path;
    added.present = platform().os.files->information(path, added.last).ok();
    startTimer();
}

bool FilePoller::remove(CStringView path) {
    const auto hit = find(path);
    if (hit == watched_.end())
        return false;
    watched_.erase(hit);
    if (watched_.empty()) {
        platform().os.messages->killTimer(window_, pollTimer);
        polling_ = false;
    }
    return true;
}

void FilePoller::startTimer() {
    MessageLoop& messages = *platform().os.messages;
    if (window_ == WindowHandle::none)
        window_ = messages.createWindow(*this);
    polling_ = polling_ || messages.setTimer(window_, pollTimer, period);
}

std::vector<FilePoller::Watched>::iterator FilePoller::find(CStringView path) {
    return std::find_if(watched_.begin(), watched_.end(),
        [path](const Watched& each) { return equalNoCase(each.path, path); });
}

/// A notice may change the list, so the files are gone through by name.
void FilePoller::onTimer(std::uint32_t) {
    CStringArray paths;
    for (const Watched& each : watched_)
        paths.push_back(each.path);
    for (const CString& path : paths)
        look(path);
}

void FilePoller::look(const CString& path) {
    const auto hit = find(path);
    if (hit == watched_.end())
        return;
    FileInformation now;
    const FileStatus status = platform().os.files->information(path, now);
    if (!status.ok() && !meansGone(status.error))
        return; // a server that does not answer has not deleted anything
    const bool present = status.ok();
    const Watched before = *hit;
    hit->present = present;
    hit->last = now;
    if (present && !before.present)
        tell(path, FileChange::created);
    if (present && !(before.present && isSameState(now, before.last)))
        tell(path, FileChange::contentChanged);
    if (present && before.present && now.readOnly != before.last.readOnly)
        tell(path, now.readOnly ? FileChange::madeReadOnly : FileChange::madeWritable);
    if (!present && before.present)
        tell(path, FileChange::deleted);
}

/// Unless a notice before has taken the file off the list.
void FilePoller::tell(const CString& path, FileChange change) {
    if (find(path) != watched_.end())
        receiver_.fileChanged(path, change);
}

} // namespace ryv
