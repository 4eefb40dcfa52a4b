// The tree of subfolders and drawings with branches in front, and how many there are.
#pragma once

#include "programs/kqp/shown_project.h"
#include "programs/kqp/terminal/output.h"
#include "programs/kqp/terminal/style.h"

namespace kqp {

/// Levels that are drawn with branches. What lies deeper follows as lines that begin with the number of their
/// level, so that a file with very deep subfolders does not make output that grows with the square of its
/// size.
inline constexpr std::size_t levelsWithBranches = 64;

/// Writes the tree in the order of the project, and a line with the counts.
void showTree(const ShownProject& shown, const Painter& painter, Output& out);

} // namespace kqp
