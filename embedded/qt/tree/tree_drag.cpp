#include "embedded/qt/tree/tree_drag.h"

#include "embedded/qt/look/icons.h"
#include "embedded/qt/look/theme.h"
#include "embedded/qt/qt_text.h"
#include "embedded/qt/tree/tree_model.h"
#include "embedded/qt/tree/tree_view.h"

#include <QMimeData>
#include <QPainter>
#include <QPixmap>
#include <QPointer>
#include <QScrollBar>

#include <memory>
#include <utility>

namespace drafta {

namespace {

constexpr int scrollInterval = 40; // milliseconds
constexpr int restBeforeExpanding = 700;
constexpr int scrollEdge = 24; // pixels from the upper or lower edge

QString format() {
    return QStringLiteral("application/x-tree-rows");
}

} // namespace

TreeDrag::TreeDrag(TreeView& view, ryv::TreeControl& control)
    : view_(view), control_(control), scrolling_(&view), resting_(&view) {
    scrolling_.setObjectName(QStringLiteral("dragScroll"));
    scrolling_.setInterval(scrollInterval);
    resting_.setObjectName(QStringLiteral("dragRest"));
    resting_.setInterval(restBeforeExpanding);
    resting_.setSingleShot(true);
    scrolling_.callOnTimeout([this] { scroll(); });
    resting_.callOnTimeout([this] { expandHovered(); });
}

void TreeDrag::run() {
    ryv::TreeControl& control = control_;
    ViewContext& context = view_.context_;
    if (!control.beginDrag())
        return;
    const QPointer<TreeView> alive(&view_);
    auto rows = std::make_unique<QMimeData>();
    rows->setData(format(), QByteArray());
    const Qt::DropAction action = view_.carry(rows.release());
    if (alive)
        stopTimers();
    if (action != Qt::MoveAction)
        return control.cancelDrag();
    context.perform([&control] { control.drop(); });
}

bool TreeDrag::over(const QMimeData& rows, const QPoint& at) {
    if (!control_.isDragging() || !rows.hasFormat(format()))
        return false;
    at_ = at;
    if (scrollStep() == 0)
        scrolling_.stop();
    else if (!scrolling_.isActive())
        scrolling_.start();
    return look();
}

/// At a pointer that may have stayed where it was while the rows moved.
bool TreeDrag::look() {
    const Place place = placeAt(at_);
    const bool opens = place.target && !place.target->expanded() && place.target->shownChildCount() > 0;
    if (hovered_ != place.target || !opens)
        resting_.stop();
    if (opens && !resting_.isActive())
        resting_.start();
    hovered_ = place.target;
    return control_.dragOver(place.target, place.position);
}

/// The thirds of a row stand for the places before it, in it and behind it.
TreeDrag::Place TreeDrag::placeAt(const QPoint& at) const {
    const QModelIndex index = view_.indexAt(at);
    if (!index.isValid())
        return {nullptr, ryv::DropPosition::onto};
    const QRect row = view_.visualRect(index);
    const int third = 3 * (at.y() - row.top()) / row.height();
    const auto position = third == 0   ? ryv::DropPosition::before
                          : third == 1 ? ryv::DropPosition::onto
                                       : ryv::DropPosition::after;
    return {TreeModel::item(index), position};
}

/// The nearer to the edge the faster, in pixels.
int TreeDrag::scrollStep() const {
    const int below = view_.viewport()->height() - 1 - at_.y();
    if (at_.y() < scrollEdge)
        return -(2 + (scrollEdge - at_.y()) / 2);
    return below < scrollEdge ? 2 + (scrollEdge - below) / 2 : 0;
}

void TreeDrag::scroll() {
    QScrollBar& bar = *view_.verticalScrollBar();
    bar.setValue(bar.value() + scrollStep());
    look();
}

void TreeDrag::expandHovered() {
    ryv::TreeItem* const target = placeAt(at_).target;
    if (target && target == hovered_)
        control_.expand(*target, true);
}

void TreeDrag::leave() {
    stopTimers();
    control_.dragLeave();
}

void TreeDrag::arrived() {
    stopTimers();
}

void TreeDrag::stopTimers() {
    scrolling_.stop();
    resting_.stop();
    hovered_ = nullptr;
}

/// The label of the row with the focus, and how many there are.
QPixmap TreeDrag::picture() const {
    const ryv::TreeItem& first = *control_.selection().back();
    const QString more =
        control_.selectionCount() > 1 ? QStringLiteral("  (%1)").arg(control_.selectionCount()) : QString();
    const QFontMetrics metric = view_.fontMetrics();
    const QString label = metric.elidedText(toQt(first.label()), Qt::ElideMiddle, 240) + more;
    const QSize size(metric.horizontalAdvance(label) + metrics::icon + 3 * metrics::gap,
        metric.height() + 2 * metrics::rowPadding);
    QPixmap picture(size * view_.devicePixelRatioF());
    picture.setDevicePixelRatio(view_.devicePixelRatioF());
    picture.fill(view_.palette().color(QPalette::ToolTipBase));
    QPainter painter(&picture);
    treeIcon(first.image()).paint(&painter, metrics::gap, 0, metrics::icon, size.height());
    painter.setPen(view_.palette().color(QPalette::ToolTipText));
    painter.setFont(view_.font());
    painter.drawText(QRect(QPoint(2 * metrics::gap + metrics::icon, 0), size), Qt::AlignVCenter, label);
    return picture;
}

} // namespace drafta
