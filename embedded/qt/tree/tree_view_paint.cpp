// What a tree view draws.
#include "embedded/qt/tree/tree_view.h"

#include "embedded/qt/look/theme.h"
#include "embedded/qt/qt_text.h"
#include "embedded/qt/tree/tree_model.h"
#include "embedded/qt/tree/tree_row_delegate.h"

#include <QPainter>
#include <QStyleOption>

#include <algorithm>

namespace drafta {

void TreeView::paintEvent(QPaintEvent* event) {
    QTreeView::paintEvent(event);
    QPainter painter(viewport());
    if (control_.shownChildCount(nullptr) == 0)
        paintNothing(painter);
    if (control_.hasDropPlace())
        paintDropPlace(painter);
}

/// A selected row is marked from edge to edge. Qt would mark parts of it by its own selection, also when none
/// is to be seen.
void TreeView::drawRow(
    QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    QStyleOptionViewItem own(option);
    if (!delegate_->showsSelection(*this)) {
        own.palette.setBrush(QPalette::Highlight, Qt::NoBrush);
    } else if (TreeModel::item(index)->selected()) {
        painter->fillRect(option.rect, option.palette.brush(selectionGroup(), QPalette::Highlight));
    }
    QTreeView::drawRow(painter, own, index);
}

QPalette::ColorGroup TreeView::selectionGroup() const {
    return !isEnabled() ? QPalette::Disabled : hasFocus() ? QPalette::Active : QPalette::Inactive;
}

/// The arrow has to be seen on the ground of a selected row, too, which Qt does not think of.
void TreeView::drawBranches(QPainter* painter, const QRect& rect, const QModelIndex& index) const {
    if (!model_->hasChildren(index))
        return;
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    option.rect = rect;
    if (isRightToLeft())
        option.rect.setWidth(indentation());
    else
        option.rect.setLeft(rect.right() + 1 - indentation());
    option.state |= QStyle::State_Item | QStyle::State_Children;
    option.state.setFlag(QStyle::State_Open, isExpanded(index));
    if (TreeModel::item(index)->selected() && delegate_->showsSelection(*this))
        option.palette.setColor(
            QPalette::WindowText, palette().color(selectionGroup(), QPalette::HighlightedText));
    style()->drawPrimitive(QStyle::PE_IndicatorBranch, &option, painter, this);
}

QStyleOptionViewItem TreeView::optionOf(const QModelIndex& index) const {
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    option.rect = visualRect(index);
    return option;
}

/// In place of rows: how it stands, and what can be done about it.
void TreeView::paintNothing(QPainter& painter) const {
    const QString filter = toQt(control_.filter()).trimmed();
    const QString text = filter.isEmpty()
                             ? toQt(control_.emptyText())
                             : tr("Nothing matches \u201c%1\u201d.\nEsc shows everything again.").arg(filter);
    const int firstEnd = static_cast<int>(text.indexOf(u'\n'));
    QRect room = viewport()->rect().adjusted(metrics::margin, 2 * metrics::margin, -metrics::margin, 0);
    const auto write = [&](const QString& lines, const QColor& colour) {
        QRect used;
        painter.setPen(colour);
        painter.drawText(room, Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, lines, &used);
        room.setTop(used.bottom() + metrics::gap);
    };
    write(text.left(firstEnd), palette().color(QPalette::Text));
    if (firstEnd >= 0)
        write(text.mid(firstEnd + 1), currentTheme().quietText);
}

/// A frame around what takes the rows in, or a line where they go.
void TreeView::paintDropPlace(QPainter& painter) const {
    const QModelIndex index = model_->indexOf(control_.dropTarget());
    if (control_.dropTarget() && !index.isValid())
        return;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(currentTheme().accent, 2));
    if (!index.isValid())
        return painter.drawRect(viewport()->rect().adjusted(1, 1, -1, -1));
    QRect row = visualRect(index);
    if (control_.dropPosition() == ryv::DropPosition::onto) {
        painter.drawRoundedRect(row.adjusted(1, 1, -1, -1), 3, 3);
        return;
    }
    const bool before = control_.dropPosition() == ryv::DropPosition::before;
    const bool open = control_.dropTarget()->expanded() && control_.dropTarget()->shownChildCount() > 0;
    if (!before && open)
        row.setLeft(row.left() + indentation());
    const int y = std::max(before ? row.top() : row.bottom() + 1, 1);
    painter.drawLine(row.left(), y, row.right(), y);
    painter.drawEllipse(QPoint(row.left() + 3, y), 2, 2);
}

} // namespace drafta
