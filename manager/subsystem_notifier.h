// Relays what happens to projects to the package's log.
#pragma once

#include "model/file_details.h"

namespace ryv {

class RyvPrmProjectManager;

/// Subscribes to fourteen events of the project manager for as long as it lives, and notes each in the event
/// log as a line: the event's name, the project, and what else it concerns. The events, in the order of
/// subscribing:
///
/// | Event | Line behind the name |
/// |---|---|
/// | onProjectOpen, onProjectClose, onProjectReRead, onProjectActived | project |
/// | onProjectLocked, onProjectUnlocked | project |
/// | onProjectReadOnlyChanged | project, "read-only" or "writable" |
/// | onProjectAddDrawing, onProjectRemoveDrawing | project, drawing |
/// | onProjectAddDrawings, onProjectRemoveDrawings | project, each drawing |
/// | onProjectReplaceDrawing | project, old drawing, new drawing |
/// | onProjectTasksAdded, onProjectTasksDeleted | project, task file |
class RyvPrmSubsystemNotifier {
public:
    /// Subscribes to `manager`, which is the one of GetProjectManager() for as long as it lives.
    explicit RyvPrmSubsystemNotifier(RyvPrmProjectManager& manager);
    RyvPrmSubsystemNotifier(const RyvPrmSubsystemNotifier&) = delete;
    RyvPrmSubsystemNotifier& operator=(const RyvPrmSubsystemNotifier&) = delete;
    /// Unsubscribes, when the manager still exists.
    ~RyvPrmSubsystemNotifier();

private:
    void projectOpened(const CString& project);
    void projectClosed(const CString& project);
    void projectReRead(const CString& project);
    void projectActivated(const CString& project);
    void projectLocked(const CString& project);
    void projectUnlocked(const CString& project);
    void readOnlyChanged(const CString& project, bool readOnly);
    void drawingAdded(const CString& project, const RyvPrmFileDetails& drawing);
    void drawingsAdded(const CString& project, const CArray<RyvPrmFileDetails>& drawings);
    void drawingRemoved(const CString& project, const CString& drawing, bool isReferenceOnly);
    void drawingsRemoved(const CString& project, const CArray<RyvPrmFileDetails>& drawings);
    void drawingReplaced(const CString& project, const CString& oldPath, std::int32_t oldId,
        const CString& newPath, std::int32_t newId, bool isReferenceOnly);
    void tasksAdded(const CString& project, const CString& taskFile);
    void tasksDeleted(const CString& project, const CString& taskFile);

    RyvPrmProjectManager* manager_;
    bool subscribed_ = false;
};

} // namespace ryv
