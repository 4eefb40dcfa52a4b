// The rows and columns of a grid as Qt's views read them.
#pragma once

#include "toolkit/grid.h"

#include <QAbstractTableModel>
#include <vector>

namespace drafta {

/// Keeps texts of its own, so that what a view knows changes only with a notice of the model.
class GridModel final : public QAbstractTableModel {
public:
    using QAbstractTableModel::QAbstractTableModel;

    void take(const ryv::Grid& grid);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    struct Row {
        ryv::CStringArray texts;
        bool marked = false;
        bool operator==(const Row&) const = default;
    };

    ryv::CStringArray columns_;
    std::vector<Row> rows_;
};

} // namespace drafta
