// What a change of a drawing in one project means for the others that are open.
#pragma once

#include "model/project_data.h"

namespace ryv {

class CProjectTree;

/// Gives all entries of a drawing but the first another path: a project may list a drawing more than once.
void renameRepeated(RyvPrmProjectData& project, CStringView from, CStringView to);

/// Has the other open projects follow a drawing whose file was renamed. Each of those that list it is locked,
/// changed, written and unlocked, one after the other. One that cannot be locked or written, or lists the new
/// path already, keeps the old path; the tree's notice line names these. LISP is called: anything may have
/// changed when it returns.
void renameInOtherProjects(
    CProjectTree& tree, const CString& renamedIn, const CString& from, const CString& to);

} // namespace ryv
