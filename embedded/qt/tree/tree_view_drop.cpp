// What is dragged from a tree view, and over it.
#include "embedded/qt/tree/tree_view.h"

#include <QCoreApplication>
#include <QDrag>
#include <QDragMoveEvent>
#include <QMimeData>
#include <QPixmap>

namespace drafta {

/// The view may end meanwhile, which a drag that it owned would not outlive.
Qt::DropAction TreeView::carry(QMimeData* rows) {
    auto* const drag = new QDrag(QCoreApplication::instance());
    drag->setMimeData(rows);
    drag->setPixmap(drag_.picture());
    drag->setHotSpot(QPoint(-12, -12));
    return drag->exec(Qt::MoveAction);
}

void TreeView::dragEnterEvent(QDragEnterEvent* event) {
    dragMoveEvent(event);
    event->accept(); // or nothing would be heard of the places to come
}

void TreeView::dragMoveEvent(QDragMoveEvent* event) {
    event->setDropAction(Qt::MoveAction);
    event->setAccepted(drag_.over(*event->mimeData(), event->position().toPoint()));
}

void TreeView::dragLeaveEvent(QDragLeaveEvent* event) {
    event->accept();
    drag_.leave();
}

/// The rows go to their place when the drag is over for whoever began it.
void TreeView::dropEvent(QDropEvent* event) {
    event->setDropAction(Qt::MoveAction);
    event->setAccepted(drag_.over(*event->mimeData(), event->position().toPoint()));
    drag_.arrived();
}

} // namespace drafta
