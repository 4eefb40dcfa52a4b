#include "embedded/qt/dialogs/scrolled_content.h"

#include <QApplication>
#include <QEvent>
#include <QScreen>
#include <QScrollBar>

namespace drafta {

ScrolledContent::ScrolledContent(QWidget* content, double partOfScreen, QWidget* parent)
    : QScrollArea(parent), part_(partOfScreen) {
    setFrameShape(NoFrame);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
    setWidget(content);
    viewport()->setAutoFillBackground(false);
    content->setAutoFillBackground(false); // the area has set it
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
        if (now && widget() && widget()->isAncestorOf(now))
            ensureWidgetVisible(now);
    });
}

QSize ScrolledContent::withinScreen(QSize wanted) const {
    const QScreen* const on = screen();
    const int most = on ? static_cast<int>(on->availableSize().height() * part_) : wanted.height();
    if (wanted.height() <= most)
        return wanted;
    return {wanted.width() + verticalScrollBar()->sizeHint().width(), most};
}

QSize ScrolledContent::sizeHint() const {
    return withinScreen(widget()->sizeHint());
}

QSize ScrolledContent::minimumSizeHint() const {
    return withinScreen(widget()->minimumSizeHint());
}

/// The content needs more or less than before, and the window around it, too.
bool ScrolledContent::eventFilter(QObject* watched, QEvent* event) {
    if (watched == widget() && event->type() == QEvent::LayoutRequest)
        updateGeometry();
    return QScrollArea::eventFilter(watched, event);
}

} // namespace drafta
