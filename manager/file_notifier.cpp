#include "manager/file_notifier.h"

#include "base/text.h"
#include "bridge/platform.h"

namespace ryv {

namespace {

void logFailure(CStringView what, FileStatus status) {
    platform().services.eventLog->log(u"fileMonitoring",
        {CString(what), fromAscii(describe(status.error)), u"looked at from time to time instead"});
}

} // namespace

void RyvPrmMonitorReceiver::fileChanged(CStringView path, FileChange change) {
    const CString file(path);
    switch (change) {
    case FileChange::contentChanged:
        return fileContentChanged(file);
    case FileChange::created:
        return fileCreated(file);
    case FileChange::deleted:
        return fileDeleted(file);
    case FileChange::madeReadOnly:
    case FileChange::madeWritable:
        return fileReadOnlyChanged(file, change == FileChange::madeReadOnly);
    }
}

void RyvPrmMonitorReceiver::fileRenamed(CStringView oldPath, CStringView newPath) {
    fileWasRenamed(CString(oldPath), CString(newPath));
}

RyvPrmFileNotifier::~RyvPrmFileNotifier() {
    stopMonitoring();
}

bool RyvPrmFileNotifier::startMonitoring() {
    if (running_)
        return true;
    const FileStatus status = platform().os.monitor->start(asReceiver());
    running_ = status.ok();
    if (!running_)
        logFailure(u"the service does not start", status);
    return running_;
}

void RyvPrmFileNotifier::stopMonitoring() {
    if (running_)
        platform().os.monitor->stop();
    running_ = false;
}

void RyvPrmFileNotifier::addFile(CStringView path) {
    const FileStatus status =
        running_ ? platform().os.monitor->watch(path) : FileStatus{FileError::unsupported, 0};
    if (status.ok())
        return;
    if (running_)
        logFailure(path, status);
    poller_.add(path);
}

bool RyvPrmFileNotifier::removeFile(CStringView path) {
    const bool watched = running_ && platform().os.monitor->unwatch(path);
    return poller_.remove(path) || watched;
}

} // namespace ryv
