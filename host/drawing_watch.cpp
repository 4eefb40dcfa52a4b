#include "host/drawing_watch.h"

#include "base/fold.h"
#include "manager/project_manager.h"

namespace ryv {

namespace {

CString lockFileOf(const CString& drawing) {
    return drawing + u".FLL";
}

} // namespace

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
    RyvPrmFileNotifier& notifier = manager.getFileNotifier();
    notifier.onContentChanged.subscribe(*this, &DrawingWatch::onFile);
    notifier.onCreated.subscribe(*this, &DrawingWatch::onFile);
    notifier.onDeleted.subscribe(*this, &DrawingWatch::onFile);
    notifier.onReadOnlyChanged.subscribe(*this, &DrawingWatch::onReadOnly);
    notifier.onRenamed.subscribe(*this, &DrawingWatch::onRenamed);
    notifier.addFile(drawing_);
    notifier.addFile(lockFileOf(drawing_));
}

/// With its manager the watch list goes, too.
void DrawingWatch::end() {
    if (manager_ && manager_ == GetProjectManager()) {
        RyvPrmFileNotifier& notifier = manager_->getFileNotifier();
        notifier.removeFile(drawing_);
        notifier.removeFile(lockFileOf(drawing_));
        notifier.onContentChanged.removeAll(this);
        notifier.onCreated.removeAll(this);
        notifier.onDeleted.removeAll(this);
        notifier.onReadOnlyChanged.removeAll(this);
        notifier.onRenamed.removeAll(this);
    }
    manager_ = nullptr;
}

void DrawingWatch::onFile(const CString& path) {
    if (equalNoCase(path, drawing_) || equalNoCase(path, lockFileOf(drawing_)))
        changed_();
}

} // namespace ryv
