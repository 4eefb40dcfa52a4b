// The size that somebody has given to a window comes back the next time.
#pragma once

#include "embedded/qt/dialogs/window_sizes.h"

class QWidget;

namespace drafta {

/// Gives the window, by its object name, the size that is kept for it, else `usual`, or what it asks for
/// where that is not valid; never more than the screen has. When it ends it keeps the size if that is another
/// one now. A window without a name has the usual size always.
class KeptSize {
public:
    KeptSize(QWidget& window, const WindowSizes& sizes, QSize usual = {});
    KeptSize(const KeptSize&) = delete;
    KeptSize& operator=(const KeptSize&) = delete;
    ~KeptSize();

private:
    QWidget& window_;
    const WindowSizes& sizes_;
    QSize opened_;
};

} // namespace drafta
