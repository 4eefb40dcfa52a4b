#include "embedded/qt/controls/grid_model.h"

#include "embedded/qt/look/theme.h"
#include "embedded/qt/qt_text.h"

#include <QFont>

namespace drafta {

void GridModel::take(const ryv::Grid& grid) {
    std::vector<Row> rows(grid.rowCount());
    for (std::size_t row = 0; row < rows.size(); ++row) {
        for (std::size_t column = 0; column < grid.columns().size(); ++column)
            rows[row].texts.push_back(grid.text(row, column));
        rows[row].marked = grid.isMarked(row);
    }
    if (columns_ != grid.columns() || rows.size() != rows_.size()) {
        beginResetModel();
        columns_ = grid.columns();
        rows_ = std::move(rows);
        endResetModel();
    } else if (rows != rows_) {
        rows_ = std::move(rows);
        emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
    }
}

int GridModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int GridModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid())
        return {};
    const Row& row = rows_[static_cast<std::size_t>(index.row())];
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole) // a column may be too narrow
        return toQt(row.texts[static_cast<std::size_t>(index.column())]);
    if (role == Qt::AccessibleDescriptionRole && row.marked)
        return QStringLiteral("marked");
    if (role == Qt::BackgroundRole && row.marked)
        return currentTheme().markedBase;
    if (role != Qt::FontRole || !row.marked)
        return {};
    QFont bold;
    bold.setBold(true);
    return bold;
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return toQt(columns_[static_cast<std::size_t>(section)]);
}

} // namespace drafta
