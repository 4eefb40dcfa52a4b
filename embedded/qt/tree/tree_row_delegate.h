// How a row of a tree is drawn.
#pragma once

#include <QStyledItemDelegate>

namespace ryv {
class TreeControl;
}

namespace drafta {

/// Selection and focus are those of the control, not those of Qt's selection model.
class TreeRowDelegate final : public QStyledItemDelegate {
public:
    TreeRowDelegate(const ryv::TreeControl& control, QObject* parent);

    /// All rows are of the same height.
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

    /// Whether selected rows are marked in a view now.
    bool showsSelection(const QWidget& view) const;

    /// The place of the label in its row.
    QRect labelRect(const QStyleOptionViewItem& option, const QModelIndex& index) const;

    /// The whole label, where the row does not have the room for it.
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
        const QModelIndex& index) override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private:
    const ryv::TreeControl& control_;
};

} // namespace drafta
