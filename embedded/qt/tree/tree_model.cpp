#include "embedded/qt/tree/tree_model.h"

#include "embedded/qt/look/icons.h"
#include "embedded/qt/qt_text.h"

#include <QFont>

#include <algorithm>
#include <utility>

namespace drafta {

namespace {

using ryv::TreeCount;
using ryv::TreeItem;

/// So many notices of rows are handed on one by one.
constexpr int manyNotices = 32;

/// On which level a row stands, from 0; for all that are too deep the first that is.
int levelOf(const TreeItem& item) {
    int level = 0;
    for (const TreeItem* at = item.parent(); at && level < TreeModel::levels; at = at->parent())
        ++level;
    return level;
}

bool showsRow(const TreeItem& item) {
    return levelOf(item) < TreeModel::levels;
}

bool showsChildren(const TreeItem* parent) {
    return !parent || levelOf(*parent) + 1 < TreeModel::levels;
}

/// Whether any row stands so many levels below another one.
bool reaches(const TreeItem& top, int depth) {
    const TreeItem* at = &top;
    int level = 0;
    while (level < depth) {
        if (const TreeItem* const child = at->firstChild(TreeCount::shown)) {
            at = child;
            ++level;
            continue;
        }
        while (at != &top && !at->next(TreeCount::shown)) {
            at = at->parent();
            --level;
        }
        if (at == &top)
            return false;
        at = at->next(TreeCount::shown);
    }
    return true;
}

} // namespace

TreeModel::TreeModel(ryv::TreeControl& control, QObject* parent)
    : QAbstractItemModel(parent), control_(control) {
    control_.attach(*this);
}

TreeModel::~TreeModel() {
    control_.detach(*this);
}

TreeItem* TreeModel::item(const QModelIndex& index) {
    return static_cast<TreeItem*>(index.internalPointer());
}

QModelIndex TreeModel::indexOf(const TreeItem* item) const {
    if (!item || suspended_ || !item->shown() || !showsRow(*item))
        return {};
    return createIndex(static_cast<int>(item->shownRow()), 0, item);
}

QModelIndex TreeModel::index(int row, int column, const QModelIndex& parent) const {
    if (row < 0 || column != 0 || row >= rowCount(parent))
        return {};
    return createIndex(row, 0, control_.shownChild(item(parent), static_cast<std::size_t>(row)));
}

QModelIndex TreeModel::parent(const QModelIndex& index) const {
    return index.isValid() ? indexOf(item(index)->parent()) : QModelIndex();
}

int TreeModel::rowCount(const QModelIndex& parent) const {
    const TreeItem* const under = item(parent);
    if (suspended_ || parent.column() > 0)
        return 0;
    const std::size_t count = control_.shownChildCount(under);
    return count > 0 && showsChildren(under) ? static_cast<int>(count) : 0;
}

int TreeModel::columnCount(const QModelIndex&) const {
    return 1;
}

QVariant TreeModel::data(const QModelIndex& index, int role) const {
    const TreeItem* const row = item(index);
    if (!row)
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return toQt(row->label());
    case Qt::DecorationRole:
        return icon(row->image());
    case Qt::FontRole:
        if (!row->bold())
            return {};
        QFont font;
        font.setBold(true);
        return font;
    }
    return {};
}

/// Looking one up anew for each row that is drawn takes longer than drawing it.
const QIcon& TreeModel::icon(int image) const {
    const auto found = icons_.constFind(image);
    return found != icons_.constEnd() ? *found : *icons_.insert(image, treeIcon(image));
}

// -- Notices

/// Whether nothing is said of the next notice.
bool TreeModel::isQuiet() {
    if (suspended_)
        return true;
    if (notices_++ == 0)
        QMetaObject::invokeMethod(
            this,
            [this] {
                notices_ = 0;
                resume();
            },
            Qt::QueuedConnection);
    if (notices_ <= manyNotices)
        return false;
    suspend();
    return true;
}

void TreeModel::suspend() {
    beginResetModel();
    suspended_ = true;
    endResetModel();
}

void TreeModel::resume() {
    if (!suspended_)
        return;
    beginResetModel();
    suspended_ = false;
    endResetModel();
}

void TreeModel::tellInsertion(TreeItem* parent, int row, int count) {
    beginInsertRows(indexOf(parent), row, row + count - 1);
    told_ = Told::insertion;
}

void TreeModel::tellRemoval(TreeItem* parent, int row, int count) {
    beginRemoveRows(indexOf(parent), row, row + count - 1);
    told_ = Told::removal;
}

void TreeModel::tellReset() {
    beginResetModel();
    told_ = Told::reset;
}

void TreeModel::aboutToInsert(TreeItem* parent, std::size_t row, std::size_t count) {
    if (!isQuiet() && showsChildren(parent))
        tellInsertion(parent, static_cast<int>(row), static_cast<int>(count));
}

void TreeModel::aboutToRemove(TreeItem* parent, std::size_t row, std::size_t count) {
    if (!isQuiet() && showsChildren(parent))
        tellRemoval(parent, static_cast<int>(row), static_cast<int>(count));
}

void TreeModel::aboutToMove(TreeItem& item, TreeItem* parent, std::size_t row) {
    if (isQuiet())
        return;
    const bool leaves = showsRow(item);
    const bool arrives = showsChildren(parent);
    const int from = static_cast<int>(item.shownRow());
    const int to = static_cast<int>(row);
    const int fromLevel = levelOf(item);
    const int toLevel = parent ? levelOf(*parent) + 1 : 0;
    if (!leaves && !arrives)
        return;
    if (!leaves)
        return tellInsertion(parent, to, 1);
    if (!arrives)
        return tellRemoval(item.parent(), from, 1);
    if (fromLevel != toLevel && reaches(item, levels - std::max(fromLevel, toLevel)))
        return tellReset(); // rows below it come into reach, or get out of it
    // Qt numbers the place as it is while the row is still there.
    const int place = item.parent() == parent && to > from ? to + 1 : to;
    if (beginMoveRows(indexOf(item.parent()), from, from, indexOf(parent), place))
        told_ = Told::move;
}

void TreeModel::aboutToReset() {
    if (!suspended_)
        tellReset();
}

void TreeModel::changed(TreeItem& item) {
    const QModelIndex index = indexOf(&item);
    if (index.isValid())
        emit dataChanged(index, index);
}

void TreeModel::complete() {
    switch (std::exchange(told_, Told::nothing)) {
    case Told::nothing:
        return;
    case Told::insertion:
        return endInsertRows();
    case Told::removal:
        return endRemoveRows();
    case Told::move:
        return endMoveRows();
    case Told::reset:
        return endResetModel();
    }
}

} // namespace drafta
