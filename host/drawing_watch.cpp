#include "host/drawing_watch.h"

#include "base/fold.h"
#include "bridge/platform.h"
#include "manager/project_manager.h"
#include "siblings/lock_file.h"

namespace ryv {

void DrawingWatch::follow(CStringView drawing) {
    RyvPrmProjectManager* const manager = GetProjectManager();
    if (manager == manager_ && drawing == drawing_)
        return;
    end();
    drawing_ = drawing;
    if (manager && !drawing.empty())
        begin(*manager);
}

void DrawingWatch::begin(RyvPrmProjectManager& manager) {
    manager_ = &manager;
    lockFile_ = lockFileNameFor(*platform().os.files, drawing_);
    RyvPrmFileNotifier& notifier = manager.getFileNotifier();
    notifier.onContentChanged.subscribe(*this, &DrawingWatch::onFile);
    notifier.onCreated.subscribe(*this, &DrawingWatch::onFile);
    notifier.onDeleted.subscribe(*this, &DrawingWatch::onFile);
    notifier.onReadOnlyChanged.subscribe(*this, &DrawingWatch::onReadOnly);
    notifier.onRenamed.subscribe(*this, &DrawingWatch::onRenamed);
    notifier.addFile(drawing_);
    notifier.addFile(lockFile_);
}

/// With its manager the watch list goes, too.
void DrawingWatch::end() {
    if (manager_ && manager_ == GetProjectManager()) {
        RyvPrmFileNotifier& notifier = manager_->getFileNotifier();
        notifier.removeFile(drawing_);
        notifier.removeFile(lockFile_);
        notifier.onContentChanged.removeAll(this);
        notifier.onCreated.removeAll(this);
        notifier.onDeleted.removeAll(this);
        notifier.onReadOnlyChanged.removeAll(this);
        notifier.onRenamed.removeAll(this);
    }
    manager_ = nullptr;
}

void DrawingWatch::onFile(const CString& path) {
    if (equalNoCase(path, drawing_))
        changed_(Change::content);
    else if (equalNoCase(path, lockFile_))
        changed_(Change::access);
}

void DrawingWatch::onReadOnly(const CString& path, bool) {
    if (equalNoCase(path, drawing_))
        changed_(Change::access);
}

void DrawingWatch::onRenamed(const CString& oldPath, const CString& newPath) {
    onFile(oldPath);
    onFile(newPath);
}

} // namespace ryv
