// The open projects of this run of the host, and which of them is active.
#pragma once

#include "base/export.h"
#include "manager/addin_handler.h"
#include "manager/file_notifier.h"
#include "manager/project_events.h"
#include "manager/reread_timers.h"
#include "manager/virtual_file_locker.h"
#include "model/open_projects.h"
#include "model/project.h"

#include <optional>

namespace ryv {

class CatalogBrowserLink;

/// A path or name that may be missing; see each operation for what stands in its place.
using OptionalPath = std::optional<CStringView>;

/// The one object through which projects are reached. A project is named by its ID, the full path of its
/// project file; in what is handed in "/" counts as "\", and IDs, drawing paths and names are compared
/// without regard to case. Where an operation on one project takes an optional ID, a missing one stands for
/// the active project.
///
/// Results say whether the operation succeeded; nothing is shown to the user unless an operation says so, and
/// nothing throws. Main thread only, and nobody ends the manager from within one of its events. Whatever
/// calls LISP, fires an event or asks the user may find anything changed when it goes on: projects opened,
/// read again or closed. So pointers to projects are not kept across such calls.
class RYV_EXPORT RyvPrmProjectManager final : public ProjectEvents, private OpenProjects {
public:
    /// More projects than this are never open for long: the next activation closes one.
    static constexpr std::size_t maxOpenProjects = 30;

    RyvPrmProjectManager();
    RyvPrmProjectManager(const RyvPrmProjectManager&) = delete;
    RyvPrmProjectManager& operator=(const RyvPrmProjectManager&) = delete;
    ~RyvPrmProjectManager();

    // Look-ups ------------------------------------------------------------------------------------------

    int getProjectCount() const noexcept { return static_cast<int>(projects_.size()); }
    /// The place in the order of opening, from 0; -1 when the project is not open.
    int getProjectIndex(OptionalPath projectId) const;
    /// The project at a place, or with an ID; null when there is none. Owned by the manager.
    RyvPrmProject* getProject(int index) const;
    RyvPrmProject* getProject(OptionalPath projectId) const;
    RyvPrmProject* getActiveProject() const override { return getProject(std::nullopt); }
    /// The same as getProject(), kept alive for whoever lets it read or write.
    std::shared_ptr<RyvPrmProject> holdProject(OptionalPath projectId) const { return find(projectId); }
    /// False when the project that was activated last is not open.
    bool getActiveProjectID(CString& projectId) const;
    bool isActiveProject(CStringView projectId) const;
    /// The ID of the first open project of a name (no folder, no extension).
    bool getProjectFullPath(CStringView name, CString& projectId) const;
    /// The project's name: that of its file, in upper case. Always true.
    bool getProjNameFromID(CStringView projectId, CString& name) const;
    /// The same; a missing ID gives the name of the active project, or an empty one when it is not open.
    bool makeProjectPrettyNameFromID(OptionalPath projectId, CString& name) const;
    /// Whether an open project has the name of `projectId`; stores the first one's ID when asked to.
    bool isProjectSameNameAsExisting(CStringView projectId, CString* existing = nullptr) const;
    /// The ID of the open project that lists a drawing, the active one first. False without an active one.
    bool findMatchingProject(CStringView drawing, CString& projectId) const;
    /// Whether a project lists a drawing: by the project's index, and by a walk over its drawings.
    bool isFileInProject(CStringView drawing, OptionalPath projectId = std::nullopt) const;
    bool isInProject(CStringView drawing, OptionalPath projectId = std::nullopt) const;
    /// Whether the project's task file exists.
    bool projectHasTasks(OptionalPath projectId = std::nullopt) const;
    /// The task file of a project, and back. The first is always true; the second is false for other files.
    bool generateTaskFileNameForProject(CStringView projectId, CString& taskFile) const;
    bool generateProjectFileNameFromTaskName(CStringView taskFile, CString& projectId) const;
    /// The path of the project's database; false when the database service cannot tell it.
    bool getProjectDbFullPath(OptionalPath projectId, CString& path) const;
    IRyvAddinHandler* getAddinHandler() const noexcept { return addinHandler_; }
    CList<_filetimer>& getFileTimerList() noexcept { return timers_.list(); }
    /// Also for files that belong to no project; those of projects are the manager's own.
    RyvPrmFileNotifier& getFileNotifier() noexcept { return *notifier_; }

    // Open, activate, close -----------------------------------------------------------------------------

    /// Opens a project file. Drawings that are not where the project says may be looked for with the user's
    /// help. A second project of a name that is open already is refused unless `skipSameNameCheck` is set. A
    /// project that is open counts as opened. False when the file cannot be read.
    bool openProject(OptionalPath projectId, bool activate, bool skipSameNameCheck = false);
    /// False when the project is not open or a handler objects; the active project stays then.
    bool setActiveProject(OptionalPath projectId);
    /// The active project is closed with `force` only; it stays the active one by name.
    bool closeProject(OptionalPath projectId, bool force);
    /// Raises std::invalid_argument when any project is open; see the implementation.
    bool closeAllNonActiveProjects();
    /// Reads a project's file again. What is in memory stays when that fails.
    bool reReadProject(OptionalPath projectId = std::nullopt);
    /// The file of an open project was moved: the identifiers of drawings that the new file does not list are
    /// forgotten, and the old project is replaced by the new one. False like replaceOpenProject().
    bool projectMoved(CStringView oldId, CStringView newId);
    /// Closes one project and opens another; false with at most one open.
    bool replaceOpenProject(CStringView oldId, CStringView newId, bool activate);
    /// Asks the user first; with at most one project open only tells that it cannot be done.
    bool replaceOpenProjectWithPrompt(CStringView oldId, CStringView newId, bool activate);
    /// Looks for drawings that are not where the project says and offers to repair their paths. True when the
    /// repair was finished and, as far as possible, written.
    bool verifyAndRepairAbsolutePaths(RyvPrmProject& project);

    // Drawings and subfolders ---------------------------------------------------------------------------
    // Each is on disk before its event. A change that cannot be written stays in memory, without an event.
    // Whoever calls has locked the project's files (lockProjectFiles()) where others may work on them.

    /// Adds a drawing, into the subfolder set with SetNewDwgSubfolderTrace(), which is forgotten then.
    /// `updateTerms`: its terminal links are brought into the project's database first, `quiet` without
    /// asking. False also when the project has the drawing already.
    bool addFileToProject(std::unique_ptr<RyvPrmFileDetails> drawing, OptionalPath projectId = std::nullopt,
        bool updateTerms = false, bool quiet = false);
    /// Adds those that the project does not have, into the subfolder of `trace` (empty: the top level);
    /// `added` gets one entry a drawing. False when there was none to add.
    bool addFilesToProject(const CArray<RyvPrmFileDetails>& drawings, std::vector<bool>& added,
        OptionalPath projectId = std::nullopt, const CString& trace = {}, bool updateTerms = false,
        bool quiet = false);
    bool removeFileFromProject(CStringView drawing, OptionalPath projectId = std::nullopt);
    /// Both are true for an empty list, without writing; the second one fires no event.
    bool removeFilesFromProject(const CStringArray& drawings, OptionalPath projectId = std::nullopt);
    bool removeSubfoldersFromProject(const CStringArray& traces, OptionalPath projectId = std::nullopt);
    /// The drawing's entry leads to another file. A rename fires no event, which callers rely on.
    bool replaceFileInProject(
        CStringView oldPath, CStringView newPath, OptionalPath projectId = std::nullopt);
    bool renameFileInProject(CStringView oldPath, CStringView newPath, OptionalPath projectId = std::nullopt);
    /// Fires before the change. The result is that of the change in memory: whether it was written, the
    /// project's getLastError() tells.
    bool modifyDetailsForFileInProject(
        const RyvPrmFileDetails& details, OptionalPath projectId = std::nullopt);
    /// Fires before the change. Does not write the project file; the caller does.
    bool setMiscProjSettingsInProject(
        const RyvPmMiscProjSettings& settings, OptionalPath projectId = std::nullopt);
    void SetNewDwgSubfolderTrace(CStringView trace) { newDrawingTrace_ = trace; }
    /// Gives it to who adds the drawing later, and forgets it.
    CString takeNewDwgSubfolderTrace() noexcept { return std::exchange(newDrawingTrace_, {}); }

    /// Drawings whose settings LISP has to read again once they are current; without `append` the list starts
    /// anew.
    void setDrawingsNeedKQ_MUpdate(const CStringList& drawings, bool append);
    /// True when the drawing was on that list; it is taken off, and LISP will read its settings.
    bool notifyLispKQ_MAndRemove(OptionalPath drawing);

    /// How drawings are labelled, kept for the user; false when it cannot be read.
    bool getDwgDisplaySetting(CArray<int>& order, CString& separator, bool& showSelection) const;
    bool setDwgDisplaySetting(const CArray<int>& order, const CString& separator, bool showSelection) const;

    // Files and locks -----------------------------------------------------------------------------------

    /// The files of a project: the project file, then its drawings in their order. They are appended.
    bool getProjectFiles(CStringList& files, OptionalPath projectId = std::nullopt) const;
    /// The files that the project depends on: its drawings.
    bool getProjectDependents(CStringArray& files, OptionalPath projectId = std::nullopt) const;
    /// The files that make up the project to be packed, those that exist: the project file, its companion
    /// store and its drawings. False when there is none to be packed or it is not open.
    bool getProjectFilesToBePacked(CStringArray& files) const;
    /// An empty path stands for the active project; another one may be a project file or a drawing.
    void setProjectToBePacked(CStringView path);
    const CString& getProjectToBePacked() const noexcept { return toBePacked_; }
    void resetProjectToBePacked() { toBePacked_.clear(); }

    /// As in RyvPrmVirtualFileLocker. Outputs are left alone when there is nothing to tell. Those of the last
    /// form may be null; a null `who` of the form before it gives lockInvalid.
    bool lockProjectFile(OptionalPath path);
    bool unlockProjectFile(OptionalPath path);
    bool isProjectFileLocked(OptionalPath path);
    _lockStatus whoHasProjectFileLocked(OptionalPath path, CString* who);
    _lockStatus whoHasProjectFileLocked(OptionalPath path, CString* who, CString* machine, CString* time);
    /// Why the latest lock that failed could not be taken; each failure is given once.
    std::optional<LockFailure> takeLockFailure();
    /// Has LISP check and lock all files of the active project; those locked by the call are added to
    /// `locked`. False also without an active project.
    bool lockProjectFiles(CStringList& locked);
    /// Always true.
    bool unlockProjectFiles(const CStringList& files);

    // Start-up, add-ins, watching -----------------------------------------------------------------------

    /// Records an open project's state in the list of last projects.
    void recordOpenState(CStringView projectId);

    /// False when the projects of the last run are being opened already; true begins it, until
    /// endStartupLoading().
    bool beginStartupLoading() noexcept { return !std::exchange(startupLoading_, true); }
    void endStartupLoading() noexcept { startupLoading_ = false; }

    void setInitialOpenCompleteTrue() noexcept { initialOpenComplete_ = true; }
    bool InitialOpenComplete() const noexcept { return initialOpenComplete_; }
    void StartupProjectLoadingComplete() { onStartupProjectLoadingComplete(); }
    /// The host made a drawing current.
    void drawingActivated(CStringView drawing);

    /// The add-in handler's events reach the manager's subscribers between these two.
    void hookOZMZarnEventHandler();
    void unHookOZMZarnEventHandler();
    void notifyAddinPostSync(bool succeeded) { addinHandler_->synchronizeCompleted(succeeded); }

    /// Starts the quiet period behind which a changed project is read again. Always true.
    bool setReReadTimer(CStringView projectId);
    /// What the palette window does when one of its timers fires and when it gets `rereadMessage`.
    void onReReadTimer(WindowHandle window, std::uint32_t timerId);
    void onReReadMessage(std::uintptr_t index);

private:
    using Project = std::shared_ptr<RyvPrmProject>; // shared with an operation under way, so that LISP that
                                                    // closes the project does not pull it away from it

    void constructorInit();
    Project find(OptionalPath projectId) const;
    std::size_t indexOf(CStringView normalisedId) const;
    bool isOpen(const Project& project) const;

    Project read(const CString& projectId);
    void watch(const CString& projectId);
    void unwatch(const CString& projectId);
    void rewatch(const CString& projectId, const CStringArray& removed);
    void recordOpened(const CString& projectId);
    bool reRead(const Project& project, bool afterNotice);
    void closeBeyondLimit();
    bool activateNextOf(CStringView projectId);
    void queueRereadInLisp();

    bool replaceOrRename(CStringView oldPath, CStringView newPath, OptionalPath projectId, bool rename);

    void onFileChangedContent(const CString& path);
    void onFileChangedReadOnly(const CString& path, bool readOnly);
    void onFileCreated(const CString& path);
    void onFileDeleted(const CString& path);
    void onFileRenamed(const CString& oldPath, const CString& newPath);
    bool openProjectOfTaskFile(const CString& path, CString& projectId) const;
    CStringArray openProjectsOfLockFile(const CString& path) const;
    static void postReread(WindowHandle window, int index);

    void forwardSynchronize(bool& result) { onAddinSynchronize(result); }
    void forwardQueryOZMFiles(CStringArray& files) { onAddinQueryOZMFiles(files); }
    void forwardRelinkProject(const CString& oldPath, const CString& newPath) {
        onAddinRelinkProject(oldPath, newPath);
    }
    void forwardQueryNonActiveProjOZMFiles(const CString& projectId, CStringArray& files) {
        onAddinQueryNonActiveProjOZMFiles(projectId, files);
    }

    /// The lock file of a project that is reached through a symbolic link does not stand beside the link.
    struct LockBehindLink {
        CString lockFile;
        CString projectId;
    };

    CString activeId_; // empty when no project has ever been activated
    std::vector<Project> projects_;
    std::unique_ptr<RyvPrmFileNotifier> notifier_;
    std::unique_ptr<RyvPrmVirtualFileLocker> locker_;
    bool initialOpenComplete_ = false;
    bool startupLoading_ = false;
    CString toBePacked_;
    RereadTimers timers_;
    CStringList needKQ_MUpdate_;
    CString newDrawingTrace_;
    IRyvAddinHandler* addinHandler_ = nullptr;
    std::unique_ptr<CatalogBrowserLink> catalogBrowser_;
    std::vector<LockBehindLink> locksBehindLinks_;
};

/// The project manager of the running module (of its navigation manager); null before start-up and after
/// shut-down.
RYV_EXPORT RyvPrmProjectManager* GetProjectManager() noexcept;

/// The active project of GetProjectManager(), or null.
RYV_EXPORT RyvPrmProject* GetActiveProject();

/// The open project that lists a drawing, the active one first, or null.
RYV_EXPORT RyvPrmProject* FindDwgInOpenProject(CStringView drawing);

} // namespace ryv
