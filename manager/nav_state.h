// What the module's navigation manager keeps for all of its parts: the project manager, work that waits until
// the host is idle, and what the palette window and the commands hand to each other.
#pragma once

#include "base/event.h"
#include "bridge/project_reread.h"
#include "manager/deferred_requests.h"
#include "manager/pending_new_drawing.h"
#include "model/drawing_settings.h"
#include "platform/os/message_loop.h"

#include <memory>
#include <optional>
#include <vector>

namespace ryv {

class NetworkPlaces;
class RyvPrmProjectManager;

/// Hears whether the host works on something.
class BusyListener {
public:
    /// 1: the host is busy, 0: it is idle.
    virtual void busyChanged(std::int16_t busy) = 0;

protected:
    ~BusyListener() = default;
};

/// A drawing at the place where a project lists it.
struct ListedDrawing {
    CString path;
    CString projectId;
    CString trace; ///< of the subfolder that it is in; empty at the top level
};

/// The base of the navigation manager; one object from the module's start to its end. Main thread only, but
/// for adding requests.
class NavState {
public:
    NavState();
    NavState(const NavState&) = delete;
    NavState& operator=(const NavState&) = delete;
    virtual ~NavState();

    /// Makes the project manager unless there is one. Called when this object is the one in navState().
    void createProjectManager();
    /// Ends the project manager; nothing happens without one.
    void destroyProjectManager();
    RyvPrmProjectManager* projectManager() const noexcept { return projectManager_.get(); }

    /// The palette's window, whose timers the re-reads of changed projects need; none until it exists.
    WindowHandle paletteWindow() const noexcept { return paletteWindow_; }
    void setPaletteWindow(WindowHandle window) noexcept { paletteWindow_ = window; }

    /// Work that waits until the host is idle.
    DeferredRequests& deferredRequests() noexcept { return deferredRequests_; }
    /// Set while LISP is still to be told which project is active.
    bool makeActivePending = false;

    /// Re-reads of the active project in LISP.
    ProjectReread& projectReread() noexcept { return projectReread_; }

    /// The list of last projects is another one now.
    Event<> onListNeedsUpdate;

    /// What is remembered of the network; made when it is asked for.
    NetworkPlaces& networkPlaces();

    /// Handed from the tree to the commands that show a drawing's properties or compare it; whoever takes
    /// them clears them.
    CString pendingDrawing;
    CString pendingSecond;
    /// The same for the command that copies a drawing; its path is empty when there is none.
    ListedDrawing drawingToCopy;
    /// Whether the last new project was asked for with a folder of its own.
    bool newProjectInOwnFolder = false;
    /// The drawing that was made and is being opened; null when there is none.
    std::unique_ptr<PendingNewDrawing> newDrawing;
    /// Settings of a drawing that were copied, to be pasted into others. Assigning them merges; emplace()
    /// does not.
    std::optional<RyvCfgDrawingSettings> copiedSettings;
    CString copiedFrom; ///< the drawing that they are from
    /// The module's temporary drawing; empty when there is none.
    CString temporaryDrawing;

    /// Listeners are not owned, hear the newest first, and take themselves off before they end.
    void addBusyListener(BusyListener& listener);
    void removeBusyListener(BusyListener& listener);
    void tellBusyListeners(std::int16_t busy);

    /// The projects of the host's last run have been opened as far as possible.
    virtual void afterStartupLoading() {}

private:
    std::unique_ptr<RyvPrmProjectManager> projectManager_;
    std::unique_ptr<NetworkPlaces> networkPlaces_;
    WindowHandle paletteWindow_ = WindowHandle::none;
    ProjectReread projectReread_;
    DeferredRequests deferredRequests_;
    std::vector<BusyListener*> busyListeners_;
};

/// The navigation manager, or null before start-up and after shut-down.
NavState* navState() noexcept;
void setNavState(NavState* state) noexcept;

} // namespace ryv
