// A drawing that was made and is being opened, to be added to its project then.
#pragma once

#include "manager/file_locks.h"
#include "model/file_details.h"

#include <memory>

namespace ryv {

/// What the first half of making a drawing hands to the second one, which runs once the drawing is open. The
/// files that were locked for it are unlocked when it goes.
struct PendingNewDrawing {
    explicit PendingNewDrawing(CStringView projectId, CString subfolder)
        : locks(projectId), trace(std::move(subfolder)), details(std::make_unique<RyvPrmFileDetails>()) {}

    FileLocks locks; ///< of the project that gets the drawing
    CString trace;   ///< of the subfolder that it comes to lie in; empty: the top level
    std::unique_ptr<RyvPrmFileDetails> details;
    bool showsProperties = false; ///< once it is in the project
};

} // namespace ryv
