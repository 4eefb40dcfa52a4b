#include "embedded/qt/dialogs/last_used_button.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QEvent>

namespace drafta {

LastUsedButton::LastUsedButton() {
    QCoreApplication::instance()->installEventFilter(this);
}

std::optional<QPoint> LastUsedButton::placeBelow() const {
    if (!button_ || !button_->isVisible())
        return std::nullopt;
    return button_->mapToGlobal(QPoint(0, button_->height()));
}

bool LastUsedButton::eventFilter(QObject* watched, QEvent* event) {
    const QEvent::Type type = event->type();
    if ((type == QEvent::MouseButtonPress || type == QEvent::KeyPress) && watched->isWidgetType())
        button_ = qobject_cast<QAbstractButton*>(watched);
    return false;
}

} // namespace drafta
