#include "embedded/qt/tree/tree_follower.h"

#include "embedded/qt/tree/tree_model.h"
#include "embedded/qt/tree/tree_view.h"

#include <QItemSelectionModel>
#include <QScrollBar>

namespace drafta {

namespace {

using ryv::TreeCount;
using ryv::TreeItem;

/// Qt's selection takes time in proportion to the square of what is selected. It serves accessibility only:
/// of a larger selection it knows the rows that are on the screen.
constexpr std::size_t manySelected = 200;

} // namespace

TreeFollower::TreeFollower(TreeView& view, ryv::TreeControl& control) : view_(view), control_(control) {
    control_.attach(*this);
}

TreeFollower::~TreeFollower() {
    control_.detach(*this);
}

// -- Rows and their expansion

void TreeFollower::followAll() {
    for (std::size_t row = 0; row < control_.shownChildCount(nullptr); ++row)
        expandBelow(*control_.shownChild(nullptr, row));
    followFocus();
    mirrorSelection();
}

void TreeFollower::aboutToInsert(TreeItem* parent, std::size_t row, std::size_t count) {
    parent_ = parent;
    row_ = row;
    count_ = count;
}

void TreeFollower::inserted() {
    if (parent_)
        expandAsTold(*parent_);
    TreeItem* at = control_.shownChild(parent_, row_);
    for (std::size_t i = 0; at && i < count_; ++i, at = at->next(TreeCount::shown))
        expandBelow(*at);
}

void TreeFollower::aboutToMove(TreeItem& item, TreeItem* parent, std::size_t) {
    moving_ = &item;
    parent_ = parent;
}

void TreeFollower::moved() {
    if (parent_)
        expandAsTold(*parent_);
    expandBelow(*moving_);
}

/// Laid out later: for one row after the other the view would move all that are below it.
void TreeFollower::expandAsTold(const TreeItem& item) {
    const QModelIndex index = view_.treeModel().indexOf(&item);
    if (!index.isValid() || view_.isExpanded(index) == item.expanded())
        return;
    view_.layOutLater();
    view_.setExpanded(index, item.expanded());
}

/// What is below a collapsed row nobody sees: that is looked at when the row is expanded.
void TreeFollower::expandBelow(TreeItem& top) {
    for (TreeItem* at = &top; at;) {
        if (at->shownChildCount() > 0)
            expandAsTold(*at);
        at = at->expanded() ? nextInTree(*at, &top, TreeCount::shown) : nextPast(*at, &top, TreeCount::shown);
    }
}

void TreeFollower::expansionChanged(TreeItem& item) {
    expandBelow(item);
}

void TreeFollower::manyExpansionsChanged(TreeItem* item) {
    if (item)
        return expandBelow(*item);
    followAll();
}

// -- Selection and focus

void TreeFollower::selectionChanged() {
    mirrorSelection();
    view_.viewport()->update();
}

void TreeFollower::focusChanged() {
    followFocus();
    view_.viewport()->update();
}

void TreeFollower::followFocus() {
    view_.selectionModel()->setCurrentIndex(
        view_.treeModel().indexOf(control_.focus()), QItemSelectionModel::NoUpdate);
}

void TreeFollower::mirrorSelection() {
    QItemSelection rows;
    const auto add = [&rows](const QModelIndex& index) {
        if (index.isValid())
            rows.append(QItemSelectionRange(index));
    };
    if (control_.selectionCount() <= manySelected) {
        for (const TreeItem* const item : control_.selection())
            add(view_.treeModel().indexOf(item));
    } else {
        for (const QModelIndex& index : view_.indexesOnScreen())
            if (TreeModel::item(index)->selected())
                add(index);
    }
    view_.selectionModel()->select(rows, QItemSelectionModel::ClearAndSelect);
}

void TreeFollower::exposed() {
    if (control_.selectionCount() > manySelected)
        mirrorSelection();
}

// -- Scrolling

/// Until the control has been told of the user's scrolling, what it says is out of date.
void TreeFollower::laidOut() {
    const QModelIndex first = view_.treeModel().indexOf(control_.firstVisible());
    if (!scrolled_ && first.isValid())
        view_.scrollToUpperEdge(first, offset_);
    exposed();
}

void TreeFollower::scrolled() {
    exposed();
    if (std::exchange(scrolled_, true))
        return;
    QMetaObject::invokeMethod(
        &view_, [this] { tellFirstVisible(); }, Qt::QueuedConnection);
}

void TreeFollower::tellFirstVisible() {
    scrolled_ = false;
    const QModelIndex first = view_.indexAt(QPoint(0, 0));
    offset_ = first.isValid() ? -view_.visualRect(first).top() : 0;
    telling_ = true;
    if (control_.firstVisible() || view_.verticalScrollBar()->value() > 0)
        control_.setFirstVisible(TreeModel::item(first));
    telling_ = false;
}

void TreeFollower::firstVisibleChanged(TreeItem*) {
    if (telling_)
        return;
    offset_ = 0;
    scrolled_ = false;
    view_.layOutLater();
}

void TreeFollower::revealed(TreeItem& item) {
    view_.treeModel().resume();
    view_.reveal(view_.treeModel().indexOf(&item));
}

// -- What lies over the rows

void TreeFollower::editStarted(TreeItem& item, const ryv::CString& text) {
    view_.treeModel().resume();
    view_.beginEdit(item, text);
}

void TreeFollower::editEnded() {
    view_.endEdit();
}

void TreeFollower::dropPlaceChanged() {
    view_.viewport()->update();
}

} // namespace drafta
