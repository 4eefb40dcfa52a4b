#include "embedded/qt/tree/tree_row_delegate.h"

#include "embedded/qt/controls/label_texts.h"
#include "embedded/qt/look/theme.h"
#include "embedded/qt/tree/tree_model.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QHelpEvent>
#include <QStyle>
#include <QToolTip>

#include <algorithm>

namespace drafta {

namespace {

/// In high contrast the selection stays what it is without the keyboard.
bool isPale(const QPalette& palette) {
    return palette.color(QPalette::Inactive, QPalette::Highlight) !=
           palette.color(QPalette::Active, QPalette::Highlight);
}

/// The selection of a view without the keyboard is pale, so that icons made for a strong one cannot be seen.
QIcon onPaleSelection(const QStyleOptionViewItem& option) {
    const qreal ratio = option.widget ? option.widget->devicePixelRatioF() : 1.0;
    const QPixmap drawn = option.icon.pixmap(option.decorationSize, ratio);
    QIcon icon(drawn);
    icon.addPixmap(drawn, QIcon::Selected);
    return icon;
}

} // namespace

TreeRowDelegate::TreeRowDelegate(const ryv::TreeControl& control, QObject* parent)
    : QStyledItemDelegate(parent), control_(control) {}

QSize TreeRowDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const {
    QFont bold = option.font;
    bold.setBold(true);
    const int text = std::max(option.fontMetrics.height(), QFontMetrics(bold).height());
    return {0, std::max(text, metrics::icon) + 2 * metrics::rowPadding};
}

void TreeRowDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    const ryv::TreeItem* const item = TreeModel::item(index);
    option->textElideMode = Qt::ElideMiddle;
    const bool selected = item->selected() && (!option->widget || showsSelection(*option->widget));
    option->state.setFlag(QStyle::State_Selected, selected);
    option->state.setFlag(
        QStyle::State_HasFocus, control_.focus() == item && option->widget && option->widget->hasFocus());
    if (selected && !option->state.testFlag(QStyle::State_Active) && isPale(option->palette))
        option->icon = onPaleSelection(*option);
}

/// The editor of a label lies in the view, which has the keyboard as long as the editor has it.
bool TreeRowDelegate::showsSelection(const QWidget& view) const {
    const QWidget* const keyboard = QApplication::focusWidget();
    return control_.showsSelectionAlways() ||
           (keyboard && (keyboard == &view || view.isAncestorOf(keyboard)));
}

QRect TreeRowDelegate::labelRect(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    QStyleOptionViewItem full(option);
    initStyleOption(&full, index);
    const QStyle& style = *full.widget->style();
    return style.subElementRect(QStyle::SE_ItemViewItemText, &full, full.widget);
}

bool TreeRowDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view,
    const QStyleOptionViewItem& option, const QModelIndex& index) {
    if (event->type() != QEvent::ToolTip || !index.isValid())
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    QStyleOptionViewItem full(option);
    initStyleOption(&full, index);
    const QRect room = labelRect(option, index);
    const int margin = 2 * (view->style()->pixelMetric(QStyle::PM_FocusFrameHMargin, &full, view) + 1);
    const bool cut = full.fontMetrics.horizontalAdvance(full.text) > room.width() - margin;
    QToolTip::showText(
        event->globalPos(), cut ? asTooltip(TreeModel::item(index)->label()) : QString(), view, option.rect);
    return true;
}

} // namespace drafta
