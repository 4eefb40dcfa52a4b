#include "embedded/qt/qt_wait_cursor.h"

#include <QCursor>
#include <QGuiApplication>

namespace drafta {

bool QtWaitCursor::RyvBeginWaitCursor() {
    wanted_ = state_.RyvBeginWaitCursor();
    update();
    return wanted_;
}

void QtWaitCursor::RyvEndWaitCursor() {
    state_.RyvEndWaitCursor();
    wanted_ = false;
    update();
}

void QtWaitCursor::questionStands(bool stands) {
    questions_ += stands ? 1 : -1;
    update();
}

void QtWaitCursor::show(bool shown) {
    if (shown_ == shown)
        return;
    shown_ = shown;
    if (shown)
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QGuiApplication::restoreOverrideCursor();
}

} // namespace drafta
