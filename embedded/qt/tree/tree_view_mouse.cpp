// The mouse in a tree view.
#include "embedded/qt/tree/tree_model.h"
#include "embedded/qt/tree/tree_row_delegate.h"
#include "embedded/qt/tree/tree_view.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QMouseEvent>

namespace drafta {

namespace {

/// A hand that trembles when it clicks is not dragging.
constexpr quint64 dragDelay = 150; // milliseconds

ryv::Modifiers modifiersOf(Qt::KeyboardModifiers held) {
    return {held.testFlag(Qt::ControlModifier), held.testFlag(Qt::ShiftModifier)};
}

} // namespace

/// Where the arrow stands with which the row is expanded.
bool TreeView::isOnBranch(const QModelIndex& index, const QPoint& at) const {
    if (!model_->hasChildren(index))
        return false;
    const QRect row = visualRect(index);
    return isRightToLeft() ? at.x() > row.right() && at.x() <= row.right() + indentation()
                           : at.x() < row.left() && at.x() >= row.left() - indentation();
}

bool TreeView::isOnLabel(const QModelIndex& index, const QPoint& at) const {
    return delegate_->labelRect(optionOf(index), index).contains(at);
}

void TreeView::mousePressEvent(QMouseEvent* event) {
    event->accept();
    typeAhead_.end();
    labelClick_.stop();
    press_.reset();
    if (event->button() != Qt::LeftButton || !control_.isEnabled())
        return;
    const QModelIndex index = indexAt(event->position().toPoint());
    ryv::TreeItem* const item = TreeModel::item(index);
    if (!item)
        control_.click(nullptr, modifiersOf(event->modifiers()));
    else if (isOnBranch(index, event->position().toPoint()))
        control_.expand(*item, !item->expanded());
    else
        press(*item, *event);
}

void TreeView::press(ryv::TreeItem& item, const QMouseEvent& event) {
    const QModelIndex index = model_->indexOf(&item);
    Press& press = press_.emplace(control_, item);
    press.at = event.position().toPoint();
    press.since = event.timestamp();
    press.clicksLater = item.selected();
    press.onChosenLabel = item.selected() && control_.selectionCount() == 1 && !gotKeyboardByPress_ &&
                          event.modifiers() == Qt::NoModifier && isOnLabel(index, press.at);
    if (!press.clicksLater)
        control_.click(&item, modifiersOf(event.modifiers()));
}

void TreeView::mouseMoveEvent(QMouseEvent* event) {
    event->accept();
    if (!press_ || !event->buttons().testFlag(Qt::LeftButton))
        return;
    const int distance = (event->position().toPoint() - press_->at).manhattanLength();
    if (distance < QApplication::startDragDistance() || event->timestamp() - press_->since < dragDelay)
        return;
    const bool selected = press_->row.item() && press_->row.item()->selected();
    press_.reset();
    if (selected)
        drag_.run();
}

void TreeView::mouseReleaseEvent(QMouseEvent* event) {
    event->accept();
    gotKeyboardByPress_ = false;
    if (event->button() != Qt::LeftButton || !press_)
        return;
    ryv::TreeItem* const item = press_->row.item();
    const bool clicks = press_->clicksLater;
    const bool onChosenLabel = press_->onChosenLabel;
    press_.reset();
    if (!item || !clicks)
        return;
    if (onChosenLabel) {
        clickedLabel_ = std::make_unique<ryv::TreeItemWatch>(control_, *item);
        labelClick_.start(QApplication::doubleClickInterval());
    }
    control_.click(item, modifiersOf(event->modifiers()));
}

void TreeView::mouseDoubleClickEvent(QMouseEvent* event) {
    const QModelIndex index = indexAt(event->position().toPoint());
    if (event->button() != Qt::LeftButton || isOnBranch(index, event->position().toPoint()))
        return mousePressEvent(event);
    event->accept();
    labelClick_.stop();
    press_.reset();
    if (ryv::TreeItem* const item = TreeModel::item(index))
        perform(*item, [this](ryv::TreeItem& row) { control_.doubleClick(row); });
}

/// The key of the menu asks for that of the row with the focus.
void TreeView::contextMenuEvent(QContextMenuEvent* event) {
    event->accept();
    labelClick_.stop();
    press_.reset();
    QModelIndex index = indexAt(event->pos());
    QPoint place = event->globalPos();
    if (event->reason() == QContextMenuEvent::Keyboard) {
        index = model_->indexOf(control_.focus());
        reveal(index);
        place = viewport()->mapToGlobal(index.isValid() ? visualRect(index).bottomLeft() : QPoint());
    }
    const ryv::TreePoint point{place.x(), place.y()};
    if (ryv::TreeItem* const item = TreeModel::item(index))
        perform(*item, [this, point](ryv::TreeItem& row) { control_.contextMenu(&row, point); });
    else
        context_.perform([&control = control_, point] { control.contextMenu(nullptr, point); });
}

} // namespace drafta
