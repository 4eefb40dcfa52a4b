// What a tree control tells its views.
#pragma once

#include "toolkit/tree_item.h"

namespace ryv {

/// A view of a tree. Rows are those that pass the filter, and are numbered among these; `parent` is null for
/// rows at the top. What is said to happen has not happened yet in a notice that begins with `aboutTo`, and
/// is complete, selection and focus included, in the one that follows it. Notices may read the tree, attach
/// and detach; they change nothing in it.
class TreeObserver {
public:
    virtual void aboutToInsert(TreeItem* /*parent*/, std::size_t /*row*/, std::size_t /*count*/) {}

    /// The rows may already have rows below them, of which nothing more is said.
    virtual void inserted() {}

    /// The rows go with all that is below them.
    virtual void aboutToRemove(TreeItem* /*parent*/, std::size_t /*row*/, std::size_t /*count*/) {}
    virtual void removed() {}

    /// `row` is the number that the row will have under its new parent, which may be the old one.
    virtual void aboutToMove(TreeItem& /*item*/, TreeItem* /*parent*/, std::size_t /*row*/) {}
    virtual void moved() {}

    /// Everything may be different afterwards, the rows that stay being the same objects.
    virtual void aboutToReset() {}
    virtual void reset() {}

    /// Label, image or weight. For the row whose label is being edited it is put off to the end of the
    /// editing.
    virtual void changed(TreeItem& /*item*/) {}
    virtual void expansionChanged(TreeItem& /*item*/) {}

    /// Any number of rows at or below that row (null: anywhere) were expanded or collapsed.
    virtual void manyExpansionsChanged(TreeItem* /*item*/) {}
    virtual void selectionChanged() {}
    virtual void focusChanged() {}

    /// A view begins to edit the label with that text, and stops.
    virtual void editStarted(TreeItem& /*item*/, const CString& /*text*/) {}
    virtual void editEnded() {}

    /// The row at the upper edge is another one (null: none), or a row has to be scrolled into view.
    virtual void firstVisibleChanged(TreeItem* /*item*/) {}
    virtual void revealed(TreeItem& /*item*/) {}
    virtual void dropPlaceChanged() {}

protected:
    ~TreeObserver() = default;
};

} // namespace ryv
