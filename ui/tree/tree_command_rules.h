// When the commands of the project tree can be chosen. All are about the context row (row_name.h), or all
// that is selected where that is said, and cost little enough to be asked for a menu.
#pragma once

#include "ui/tree/project_tree.h"

namespace ryv::tree_rules {

bool always(const CProjectTree& tree);
bool hasActiveProject(const CProjectTree& tree);

bool isProject(const CProjectTree& tree);
bool isActiveProject(const CProjectTree& tree);
bool isInactiveProject(const CProjectTree& tree);
/// Not the only project.
bool isClosableProject(const CProjectTree& tree);
bool isProjectWithDrawings(const CProjectTree& tree);
bool isProjectWithSubfolders(const CProjectTree& tree);
/// The active one, whose pending tasks LISP knows.
bool isProjectWithTasks(const CProjectTree& tree);
/// A project that does not list the drawing of the current document, which has a file.
bool isCurrentDrawingMissing(const CProjectTree& tree);
/// Selected rows of the active project, which is all that LISP works on, that stand for a drawing.
bool isListOfActiveProject(const CProjectTree& tree);

bool isSubfolder(const CProjectTree& tree);
bool isOneSubfolder(const CProjectTree& tree);
bool isSubfolderOfActiveProject(const CProjectTree& tree);
bool isSubfolderWithDrawings(const CProjectTree& tree);
/// A project or a subfolder.
bool isContainer(const CProjectTree& tree);
bool isContainerWithDrawings(const CProjectTree& tree);
/// Everything selected is a project or a subfolder of one project, and there are drawings below.
bool areContainersWithDrawings(const CProjectTree& tree);
bool areContainersWithItems(const CProjectTree& tree); ///< drawings or subfolders

bool isOneDrawing(const CProjectTree& tree);
/// A drawing whose file is there and not locked by somebody else.
bool isUsableDrawing(const CProjectTree& tree);
bool isOneUsableDrawing(const CProjectTree& tree);
/// There are settings to be pasted, too.
bool isUsableDrawingToPasteTo(const CProjectTree& tree);
/// One of the selected drawings is open in the host.
bool isOpenDrawing(const CProjectTree& tree);
/// Drawings or subfolders, or both.
bool isRemovable(const CProjectTree& tree);

} // namespace ryv::tree_rules
