// Values that the user has edited while others may have changed the same record: each value becomes what
// the one who changed it made of it, and where both did, it is the others' that stays.
#pragma once

#include "model/file_details.h"
#include "ui/dialogs/sheets/sheet_values.h"

namespace ryv {

/// Values that both have changed, each in another way.
struct MergeConflicts {
    std::vector<int> settings;      ///< indices of drawing settings
    std::vector<int> misc;          ///< indices of miscellaneous settings
    std::vector<std::size_t> lines; ///< description lines, from 0
    std::vector<int> fields;        ///< of a drawing: numbers of the texts that name them

    bool empty() const noexcept {
        return settings.empty() && misc.empty() && lines.empty() && fields.empty();
    }
};

/// `base` is what the user began with, `mine` what became of it, and `theirs` what others have made of it
/// meanwhile; the result holds all that is to be stored. Conflicts are added. Texts are compared exactly.
RyvCfgDrawingSettings mergeSettings(const RyvCfgDrawingSettings& base, const RyvCfgDrawingSettings& mine,
    const RyvCfgDrawingSettings& theirs, MergeConflicts& conflicts);
ProjectValues mergeProject(const ProjectValues& base, const ProjectValues& mine, const ProjectValues& theirs,
    MergeConflicts& conflicts);
/// Of the details, all that is edited: sections, descriptions and the reference flag; the rest is theirs.
RyvPrmFileDetails mergeDetails(const RyvPrmFileDetails& base, const RyvPrmFileDetails& mine,
    const RyvPrmFileDetails& theirs, MergeConflicts& conflicts);

/// Exact comparison of which values are present and of their texts.
bool isSame(const RyvCfgDrawingSettings& a, const RyvCfgDrawingSettings& b);
bool isSame(const ProjectValues& a, const ProjectValues& b);

/// Tells the user which values of others were kept, one a line; nothing when there is none. `name`: of the
/// project or drawing. Calls LISP, and asks the user.
void tellConflicts(const CString& name, const MergeConflicts& conflicts);

} // namespace ryv
