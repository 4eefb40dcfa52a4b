// The settings block of a drawing, as the drawing's properties change it.
#pragma once

#include "platform/host/drawings.h"
#include "ui/dialogs/work/value_merge.h"

#include <memory>

namespace ryv {

/// Where an operation fails, `problem` names file and reason.
class DrawingBlock {
public:
    /// `titled` false: the drawing of the document that is current now, whichever is current later.
    DrawingBlock(CStringView drawing, bool titled);

    /// Puts what the block says over `settings`, which hold defaults. False when the drawing cannot be read.
    [[nodiscard]] bool read(RyvCfgDrawingSettings& settings, CString& problem) const;

    /// Puts the difference between both into the block as it is now; where that has no value, the one among
    /// `defaults` counts. Of a drawing that is open in the host, the document is changed and not saved: when
    /// that is done is the user's decision. False also when the drawing is opened or closed meanwhile. Calls
    /// LISP, and may ask the user.
    [[nodiscard]] bool store(const RyvCfgDrawingSettings& before, const RyvCfgDrawingSettings& edited,
        const RyvCfgDrawingSettings& defaults, CString& problem);

    /// Whether the last store() changed anything, and what it found changed by others, too.
    bool isWritten() const noexcept { return isWritten_; }
    const MergeConflicts& conflicts() const noexcept { return conflicts_; }

private:
    std::unique_ptr<DrawingDatabase> open(CString& problem) const;
    DocumentId documentNow() const;
    CString write(DrawingDatabase& view, DocumentId document, const RyvCfgDrawingSettings& present,
        const RyvCfgDrawingSettings& settings) const;

    CString drawing_;
    bool titled_;
    DocumentId untitled_;
    MergeConflicts conflicts_;
    bool isWritten_ = false;
};

} // namespace ryv
