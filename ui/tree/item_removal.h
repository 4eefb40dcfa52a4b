// What goes from a project when drawings and subfolders are removed by name.
#pragma once

#include "model/project.h"

#include <unordered_set>
#include <vector>

namespace ryv {

/// Made of the project as it stands; the project must not change until apply(). Subfolders whose names differ
/// in case only go together, as they are one row.
class ItemRemoval {
public:
    /// `drawings` are paths, one for each entry that is to go, those inside the subfolders of `traces` among
    /// them; `traces` name every subfolder that is to go, also those inside of others.
    ItemRemoval(const RyvPrmProjectData& project, const CStringArray& drawings, const CStringArray& traces);

    /// The subfolders hold drawings or subfolders that are not among what was asked for.
    bool findsMore() const noexcept { return findsMore_; }
    bool isEmpty() const noexcept { return folders_.empty() && inside_.empty() && elsewhere_.empty(); }

    /// The entries that go; of a drawing that is listed more than once, the first ones.
    CArray<RyvPrmFileDetails> details(const RyvPrmProject& project) const;

    /// Removes everything in memory. A drawing that the project lists at another place stays there.
    void apply(RyvPrmProject& project) const;

private:
    std::vector<RyvPrmSubfolder*> folders_; // none of which is inside of another one
    CStringArray inside_;                   // drawings of these
    CStringArray elsewhere_;
    bool findsMore_ = false;
};

} // namespace ryv
