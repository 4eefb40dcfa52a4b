// What the module offers to the package's other modules, beside its classes. Main thread only. All of them
// may be called before start-up and after shut-down; what needs the navigation manager does nothing then.
#pragma once

#include "base/export.h"

namespace ryv {

class HostPalette;

/// Has `callback` called at the end of every begin-idle event; there is one, and a new one replaces it. Null
/// is ignored. Whoever registers stays loaded.
RYV_EXPORT void registerBeginQuiescentStateCB(void (*callback)());

/// Has `callback` called after each save of a drawing while a project is active, with whether the drawing
/// belongs to that project. As above.
RYV_EXPORT void registerSaveCompleteCB(void (*callback)(bool belongsToActiveProject));

/// Begin and end to follow the package's client manager; both forget an update that was asked for. Without a
/// client manager nothing is followed.
RYV_EXPORT void registerOZMCompUpdate();
RYV_EXPORT void unregisterOZMCompUpdate();

/// Whether an update was asked for since the last of the two calls above; false without a client manager.
RYV_EXPORT bool checkClientQueueStatus();

/// True when the current document is at rest, and when there is none.
RYV_EXPORT bool checkQuiescentState();

/// True when the host HAS an active document. The name says the opposite; the package's modules were built on
/// the answer, so the answer stays.
RYV_EXPORT bool checkZeroDocState();

/// Takes a palette out of the Project Manager's palette set; null, and one of another set, is ignored. What a
/// command of the palette has begun, which may be waiting for an answer, comes to its end all the same.
RYV_EXPORT void removeLocationPalette(HostPalette* palette);

} // namespace ryv
