// Commands that are queued on the host's command line. Every string ends its line, so that the host runs it
// as soon as it is idle. Nothing is learnt of what becomes of it.
#pragma once

#include "base/strings.h"

namespace ryv {

enum class CommandString {
    reportDrawings,          ///< drawing-list report of the selected drawings
    updateTitleBlocks,       ///< of the selected drawings
    resequence,              ///< the package's bump command on the project
    runPendingUpdates,       ///< the project's task list
    plotDrawings,            ///< the selected drawings
    archiveProject,          ///< into a zip file
    rereadProject,           ///< in LISP; not queued while the current document is busy
    freshenTags,             ///< after the globals of the tag format changed
    rereadDrawingParameters, ///< in LISP
    updateComponent,         ///< asked for by the electromechanical link
    publishDrawings,         ///< the selected drawings
    clearMenuChoice,         ///< forgets the menu that was chosen last
    newProject,
    newDrawing,
    drawingProperties,
    compareDrawingToProject,
    projectProperties,
    continueNewDrawing, ///< second half of making a new drawing
    copyDrawing         ///< that the project tree shows selected, to a new file
};

/// Queues a command for the current document, which becomes active, without echo. Nothing happens without a
/// current document.
void queueCommandString(CommandString command);

/// The same out of a handler of the user interface: the host calls back outside of all documents, and only
/// then the command is queued, for the document that is current by that time.
void runInApplicationContext(CommandString command);

/// Queues the command that opens a drawing, with echo; without a current document the host runs it outside of
/// documents. False, and nothing queued, when there is no file of that path, or when the path holds a double
/// quote or a control unit: the host would take what follows it for further commands.
bool openDrawing(CStringView path);

/// True when the current document is at rest: no command, LISP or dialog at work. Also true when there is no
/// current document.
bool isQuiescent();

} // namespace ryv
