#include "embedded/qt/dialogs/last_used_control.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QCoreApplication>
#include <QEvent>
#include <QScreen>

namespace drafta {

namespace {

/// The list of a combo box is a window of its own, and still a child of the box.
QWidget* controlOf(QWidget* used) {
    if (qobject_cast<QAbstractButton*>(used))
        return used;
    for (QWidget* at = used; at; at = at->parentWidget())
        if (qobject_cast<QComboBox*>(at))
            return at;
    return nullptr;
}

} // namespace

LastUsedControl::LastUsedControl() {
    QCoreApplication::instance()->installEventFilter(this);
}

std::optional<QPoint> LastUsedControl::placeFor(QSize menu) const {
    if (!control_ || !control_->isVisible())
        return std::nullopt;
    const QPoint above = control_->mapToGlobal(QPoint(0, 0));
    const QPoint below = control_->mapToGlobal(QPoint(0, control_->height()));
    const QRect screen = control_->screen()->availableGeometry();
    const bool fitsAbove = above.y() - menu.height() >= screen.top();
    const bool fitsBelow = below.y() + menu.height() <= screen.bottom() + 1;
    return fitsBelow || !fitsAbove ? below : above - QPoint(0, menu.height());
}

bool LastUsedControl::eventFilter(QObject* watched, QEvent* event) {
    const QEvent::Type type = event->type();
    if ((type == QEvent::MouseButtonPress || type == QEvent::KeyPress) && watched->isWidgetType())
        control_ = controlOf(static_cast<QWidget*>(watched));
    return false;
}

} // namespace drafta
