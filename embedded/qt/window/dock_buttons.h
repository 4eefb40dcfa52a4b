// The small buttons in the titles of docks.
#pragma once

class QDockWidget;

namespace drafta {

/// Says what they do, which Qt leaves to their icons.
void explainTitleButtons(QDockWidget& dock);

} // namespace drafta
