#include "embedded/qt/dialogs/kept_size.h"

#include <QScreen>
#include <QWidget>

namespace drafta {

namespace {
constexpr double partOfScreen = 0.95;
} // namespace

KeptSize::KeptSize(QWidget& window, const WindowSizes& sizes, QSize usual) : window_(window), sizes_(sizes) {
    const QString name = window.objectName();
    QSize size = usual.isValid() ? usual : window.sizeHint().expandedTo(window.minimumSizeHint());
    if (const QSize kept = name.isEmpty() || !sizes.get ? QSize() : sizes.get(name); kept.isValid())
        size = kept.expandedTo(window.minimumSizeHint());
    if (const QScreen* const on = window.screen())
        size = size.boundedTo(on->availableSize() * partOfScreen);
    window.resize(size);
    opened_ = window.size();
}

/// Only what somebody has chosen: the usual size follows the content.
KeptSize::~KeptSize() {
    if (!window_.objectName().isEmpty() && sizes_.set && window_.size() != opened_)
        sizes_.set(window_.objectName(), window_.size());
}

} // namespace drafta
