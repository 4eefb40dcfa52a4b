// Drawings as the work on settings reaches them: by their file, or by the document that they are open in.
#pragma once

#include "model/drawing_settings.h"
#include "model/project.h"
#include "platform/host/drawings.h"

#include <memory>

namespace ryv {

/// A view of a drawing that has a file: of its document when it is open in the host. Null, with file and
/// reason in `problem`, when it cannot be read.
std::unique_ptr<DrawingDatabase> openDrawing(CStringView drawing, CString& problem);

/// Puts what the drawing's settings block says over `settings`, which hold defaults. False when it has none.
bool readSettings(DrawingDatabase& drawing, RyvCfgDrawingSettings& settings);

/// Opens a drawing that has a file and does the same. False, with file and reason in `problem`, when that
/// cannot be done.
bool readDrawing(CStringView drawing, RyvCfgDrawingSettings& settings, CString& problem);

/// Writes the settings into the drawing's settings block, which is inserted when there is none, and lets
/// ladders follow a change of the wire number format. False when that cannot be done; the user is told why
/// the block cannot be had. Saving is the caller's business.
bool writeSettings(
    DrawingDatabase& drawing, const RyvCfgDrawingSettings& present, const RyvCfgDrawingSettings& settings);

/// What a drawing of a project goes by where its settings block says nothing; of no project (null), the
/// active project's. Calls LISP.
RyvCfgDrawingSettings defaultsOf(const RyvPrmProject* project);

/// What the host says of a drawing ("FILE: REASON"), with the file as people write it.
CString shownProblem(const CString& problem, CStringView drawing);

/// The ID of the open project that lists a drawing; empty when there is none.
CString projectOf(CStringView drawing);

/// An open project and its name; null and empty when it is not open, or there is no project manager any more.
std::shared_ptr<RyvPrmProject> holdProject(CStringView projectId);
CString nameOfProject(CStringView projectId);

/// Whether a drawing is open in the host: its document is changed then, and when that is saved is the user's
/// decision.
bool isOpenInHost(CStringView drawing);

/// The drawings without those that were there before, without regard to case.
CStringArray eachOnce(const CStringArray& drawings);

/// Has LISP read the settings of drawings again: now those of the current one, and of each once it is
/// current.
void rereadInLisp(const CStringList& drawings);

} // namespace ryv
