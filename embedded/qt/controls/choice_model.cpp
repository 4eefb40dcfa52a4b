#include "embedded/qt/controls/choice_model.h"

#include "embedded/qt/look/icons.h"
#include "embedded/qt/qt_text.h"

#include <QApplication>
#include <algorithm>
#include <iterator>

namespace drafta {

QFont markedFont() {
    QFont font = QApplication::font();
    font.setBold(true);
    return font;
}

void ChoiceModel::setRows(const ryv::Choices& rows) {
    const auto differs = std::mismatch(rows_.begin(), rows_.end(), rows.begin(), rows.end());
    const auto same = std::distance(rows_.begin(), differs.first);
    const auto tail =
        std::mismatch(std::make_reverse_iterator(rows_.end()), std::make_reverse_iterator(differs.first),
            std::make_reverse_iterator(rows.end()), std::make_reverse_iterator(differs.second));
    const int first = static_cast<int>(same);
    const auto old = std::distance(differs.first, tail.first.base());
    const auto now = std::distance(differs.second, tail.second.base());
    if (old == now) { // renamed, or in another order
        rows_ = rows;
        if (now != 0)
            emit dataChanged(index(first), index(first + static_cast<int>(now) - 1));
        return;
    }
    if (old != 0) {
        beginRemoveRows({}, first, first + static_cast<int>(old) - 1);
        rows_.erase(differs.first, tail.first.base());
        endRemoveRows();
    }
    if (now != 0) {
        beginInsertRows({}, first, first + static_cast<int>(now) - 1);
        rows_ = rows;
        endInsertRows();
    }
}

int ChoiceModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant ChoiceModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid())
        return {};
    const ryv::Choice& row = rows_[static_cast<std::size_t>(index.row())];
    if (role == Qt::DisplayRole)
        return row.separator ? QString(12, QChar(0x2500)) : toQt(row.text);
    if (role == Qt::DecorationRole && row.image != 0)
        return rowIcon(row.image);
    return role == Qt::FontRole && row.marked ? QVariant(markedFont()) : QVariant();
}

Qt::ItemFlags ChoiceModel::flags(const QModelIndex& index) const {
    if (!index.isValid() || rows_[static_cast<std::size_t>(index.row())].separator)
        return Qt::NoItemFlags;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
}

} // namespace drafta
