// Work on the settings of many drawings, and looking at those of one.
#pragma once

#include "base/strings.h"

namespace ryv {

// Each shows what it has to say itself. Drawings that are open in the host are reached through their
// documents. Anything may have changed when they return.

/// Lists the drawings of an open project whose settings differ from the project's, in the order of the tree
/// and each with these settings, and those that cannot be read, with the reason. Nothing happens when the
/// project is not open.
void listExceptions(CStringView projectId);

/// Gives drawings the default settings of an open project and saves them, with the user's leave when there
/// are several; each is locked while it is at work. Those that are open in the host are changed in their
/// documents and not saved, and the report says so. Nothing is changed when somebody works on one of them, or
/// on the project; a drawing that cannot be written is skipped, and told with the reason. LISP reads the
/// settings again. The user may stop between two drawings.
void applyProjectDefaults(CStringView projectId, const CStringArray& drawings);

/// Remembers a drawing's settings until the module ends; false, and told, when they cannot be read.
bool copySettings(CStringView drawing);
bool hasCopiedSettings();
/// As applyProjectDefaults(), with the settings that were remembered. Nothing happens without any.
void pasteSettings(const CStringArray& drawings);

/// Shows a drawing's settings beside those of the open project that lists it; told when there is none.
void compareDrawing(CStringView drawing);

} // namespace ryv
