#include "ui/dialogs/work/drawing_block.h"

#include "base/format.h"
#include "bridge/platform.h"
#include "manager/shown_messages.h"
#include "resources/messages.h"
#include "resources/setting_message_numbers.h"
#include "ui/dialogs/work/drawing_access.h"

namespace ryv {

DrawingBlock::DrawingBlock(CStringView drawing, bool titled)
    : drawing_(drawing), titled_(titled),
      untitled_(titled ? DocumentId::none : platform().host.documents->currentDocument()) {}

std::unique_ptr<DrawingDatabase> DrawingBlock::open(CString& problem) const {
    if (titled_)
        return openDrawing(drawing_, problem);
    auto view = platform().host.drawings->ofDocument(untitled_);
    if (!view)
        problem = format(messageText(message::drawingNotOpen), {drawing_});
    return view;
}

/// The one that the drawing is open in.
DocumentId DrawingBlock::documentNow() const {
    HostDocuments& documents = *platform().host.documents;
    if (titled_)
        return documents.documentOfFile(drawing_);
    return documents.fileName(untitled_).empty() ? DocumentId::none : untitled_;
}

bool DrawingBlock::read(RyvCfgDrawingSettings& settings, CString& problem) const {
    const auto view = open(problem);
    if (view)
        readSettings(*view, settings);
    return view != nullptr;
}

bool DrawingBlock::store(const RyvCfgDrawingSettings& before, const RyvCfgDrawingSettings& edited,
    const RyvCfgDrawingSettings& defaults, CString& problem) {
    isWritten_ = false;
    conflicts_ = {};
    const DocumentId document = documentNow();
    const auto view = open(problem);
    if (!view)
        return false;
    RyvCfgDrawingSettings theirs(defaults);
    const bool hasBlock = readSettings(*view, theirs);
    const RyvCfgDrawingSettings merged = mergeSettings(before, edited, theirs, conflicts_);
    if (hasBlock && isSame(merged, theirs))
        return true;
    problem = write(*view, document, theirs, merged);
    isWritten_ = problem.empty();
    return isWritten_;
}

/// Empty when it is done, else why not. A view reaches the file or the document, whichever it was of at
/// first: what went into the other one is not what the user sees.
CString DrawingBlock::write(DrawingDatabase& view, DocumentId document, const RyvCfgDrawingSettings& present,
    const RyvCfgDrawingSettings& settings) const {
    const bool isWritten = writeSettings(view, present, settings);
    if (documentNow() != document)
        return format(messageText(message::drawingOpenedOrClosed), {shownPath(drawing_)});
    if (!isWritten)
        return format(messageText(message::settingsNotWritten), {shownPath(drawing_)});
    return document != DocumentId::none ? CString() : shownProblem(view.save().problem, drawing_);
}

} // namespace ryv
