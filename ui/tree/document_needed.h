// What commands that run in LISP or in the host need.
#pragma once

namespace ryv {

class CProjectTree;

/// Whether a drawing is open that a command can run in. False with a notice below the tree.
bool hasDocumentOrTells(CProjectTree& tree);

} // namespace ryv
