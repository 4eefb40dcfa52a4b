// Rows that follow the items that they show into another subfolder.
#pragma once

#include "model/project_data.h"
#include "toolkit/tree_control.h"

namespace ryv {

class CProjectTree;

/// After items went from some folders of a project to others: moves their rows along, so that these stay what
/// they are, selected and expanded. `traces` are those of all folders concerned. The order of the rows is not
/// looked at.
void adoptRows(
    CProjectTree& tree, TreeItem& projectItem, const RyvPrmProjectData& project, const CStringArray& traces);

} // namespace ryv
