// The rows of a list as Qt's views read them.
#pragma once

#include "toolkit/choice.h"

#include <QAbstractListModel>
#include <QFont>

namespace drafta {

/// Of a row that stands out.
QFont markedFont();

/// Keeps rows of its own, so that what a view knows changes only with a notice of the model.
class ChoiceModel final : public QAbstractListModel {
public:
    using QAbstractListModel::QAbstractListModel;

    /// Tells as little as it can: views keep their place over rows that stay.
    void setRows(const ryv::Choices& rows);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    ryv::Choices rows_;
};

} // namespace drafta
