// The events through which the package follows its projects. docs/events.md says of each when it fires, what
// holds then and what may follow.
#pragma once

#include "base/export.h"
#include "manager/handler_list.h"
#include "model/file_details.h"
#include "siblings/misc_proj_settings.h"

namespace ryv {

/// Subscribe to an event with `subscribe(receiver, &Receiver::handler)`; calling it fires it. Project IDs,
/// drawing paths and task files are full paths. What a handler is given is valid during its call.
class RYV_EXPORT ProjectEvents {
public:
    HandlerList<const CString&> onProjectOpen;
    HandlerList<const CString&> onProjectClose;
    HandlerList<> onProjectCloseAllNA;
    HandlerList<const CString&> onPreProjectReRead;
    HandlerList<const CString&> onProjectReRead;
    HandlerList<const CString&> onProjectSetActive;
    HandlerList<const CString&> onProjectActived; ///< the spelling is the interface's own
    HandlerList<const CString&> onProjectDeactivate;
    HandlerList<bool&> OnProjectEventVetoCheck;
    HandlerList<const CString&> onProjectLocked;
    HandlerList<const CString&> onProjectUnlocked;
    HandlerList<const CString&, bool> onProjectReadOnlyChanged;
    HandlerList<const CString&, const RyvPrmFileDetails&> onProjectAddDrawing;
    HandlerList<const CString&, const CArray<RyvPrmFileDetails>&> onProjectAddDrawings;
    /// The flag: the drawing was listed for reference only.
    HandlerList<const CString&, const CString&, bool> onProjectRemoveDrawing;
    HandlerList<const CString&, const CArray<RyvPrmFileDetails>&> onProjectRemoveDrawings;
    /// Project, old path, old identifier, new path, new identifier, whether it is listed for reference only.
    HandlerList<const CString&, const CString&, std::int32_t, const CString&, std::int32_t, bool>
        onProjectReplaceDrawing;
    HandlerList<const CString&, const CString&> onProjectTasksAdded;
    HandlerList<const CString&, const CString&> onProjectTasksDeleted;
    HandlerList<const CString&, const RyvPrmFileDetails&> onPreProjectDrawingDetailsModify;
    HandlerList<const CString&, const RyvPmMiscProjSettings&> onPreProjectSetMiscProjectSettings;
    HandlerList<> onStartupProjectLoadingComplete;
    HandlerList<const CString&> onDrawingActivate;
    HandlerList<bool&> onAddinSynchronize;
    HandlerList<CStringArray&> onAddinQueryOZMFiles;
    HandlerList<const CString&, const CString&> onAddinRelinkProject; ///< old path, new path
    HandlerList<const CString&, CStringArray&> onAddinQueryNonActiveProjOZMFiles;

    /// Removes every subscription of a receiver from every list.
    // NOLINTNEXTLINE(bugprone-reserved-identifier): sibling modules know it by this name
    void __RemoveAllEventHandlers(const void* receiver);

    /// Asks all handlers of OnProjectEventVetoCheck; true when one of them objects.
    bool sendEventVetoCheck();
};

} // namespace ryv
