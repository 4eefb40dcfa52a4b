// What the properties sheets edit. Assigning settings merges, as RyvCfgDrawingSettings does; copies that are
// to be exact are constructed.
#pragma once

#include "model/drawing_settings.h"
#include "model/file_details.h"
#include "siblings/misc_proj_settings.h"

namespace ryv {

/// Of a project.
struct ProjectValues {
    CStringList descriptions;
    RyvPmMiscProjSettings misc;
    RyvCfgDrawingSettings settings; ///< defaults for its drawings
};

/// Of a drawing.
struct DrawingValues {
    RyvPrmFileDetails details; ///< its entry in the project; without one, the file name alone
    bool inProject = false;    ///< whether there is an entry, which can be edited then
    RyvCfgDrawingSettings settings;
    CString project = {}; ///< name of the project, to be shown; may be empty
};

} // namespace ryv
