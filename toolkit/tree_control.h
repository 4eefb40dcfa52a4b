// Rows that hold rows, of which many can be selected, renamed in place, dragged, and filtered by a text.
#pragma once

#include "toolkit/control.h"
#include "toolkit/tree_filter.h"
#include "toolkit/tree_filter_memory.h"
#include "toolkit/tree_input.h"
#include "toolkit/tree_observers.h"
#include "toolkit/tree_rows.h"
#include "toolkit/tree_selection.h"

#include <functional>
#include <optional>
#include <vector>

namespace ryv {

class TreeItemWatch;
struct TreeMatch;

/// What tells rows of one parent apart, made of a row's label and record (which may be null).
using TreeKey = std::function<CString(const CString& label, const TreeItemData* data)>;

/// A tree control without a screen. Views attach as observers and hand on what the user does; owners derive
/// from it or use it as it is. `Control::changed` speaks of the control as a whole, observers hear of the
/// rows.
///
/// A null parent means the top. Selection, focus and the row at the upper edge are always rows that pass the
/// filter; rows that are removed, collapsed away or filtered out leave the selection. The user cannot do
/// anything with a control that is disabled; the program can. Everything costs time in proportion to the rows
/// concerned, and no stack, however deep the tree.
class TreeControl : public Control {
public:
    static constexpr std::size_t atEnd = static_cast<std::size_t>(-1);

    explicit TreeControl(int id);

    /// Tells nobody. A class that wants its onDeleteItem for the rows that are left calls clear() in its own
    /// destructor.
    ~TreeControl() override;

    // -- Rows (tree_control.cpp, tree_replace.cpp)

    std::size_t childCount(const TreeItem* parent) const noexcept { return under(parent).childCount(); }
    TreeItem* child(const TreeItem* parent, std::size_t row) const noexcept {
        return under(parent).child(row);
    }
    std::size_t shownChildCount(const TreeItem* parent) const noexcept {
        return under(parent).shownChildCount();
    }
    TreeItem* shownChild(const TreeItem* parent, std::size_t row) const noexcept {
        return under(parent).shownChild(row);
    }

    /// Puts a row, collapsed, at a place among the children of `parent`; at the end when there are not so
    /// many.
    TreeItem& insert(TreeItem* parent, std::size_t row, TreeRow content);

    /// The same for many, with one notice. The first of them, or null.
    TreeItem* insertRows(TreeItem* parent, std::size_t row, std::vector<TreeRow> contents);

    /// Makes the children of `parent` what `contents` says. Rows with the same key stay, with all below them,
    /// selected and expanded as they were, and take over label, image, weight, and the record when there is
    /// one; of several with equal keys the first stays for the first. All others are removed and inserted.
    void replaceChildren(TreeItem* parent, std::vector<TreeRow> contents, const TreeKey& key);

    /// Removes a row and all below it.
    void remove(TreeItem& item);

    /// Removes all rows.
    void clear();

    /// Moves a row with all below it; `row` is its number afterwards. False when the place is in the row
    /// itself.
    bool move(TreeItem& item, TreeItem* parent, std::size_t row);

    using Control::setLabel;
    void setLabel(TreeItem& item, CString text);
    void setImage(TreeItem& item, int image);
    void setBold(TreeItem& item, bool bold);
    void setData(TreeItem& item, std::unique_ptr<TreeItemData> data);

    // -- What is seen (tree_view_state.cpp)

    /// Collapsing selects the row when it hides selected ones. While a filter is set, rows expand and
    /// collapse apart from it: everything is expanded at first, and as it was when the filter goes.
    void expand(TreeItem& item, bool on);

    /// A row and all below it; null for all rows.
    void expandAll(TreeItem* item, bool on);

    /// Expands the rows above and has the views scroll to it. Nothing for a row that does not pass the
    /// filter.
    void ensureVisible(TreeItem& item);

    /// What views show in place of rows when there are none: lines parted by "\n", of which the first says
    /// how it stands and the others what can be done.
    const CString& emptyText() const noexcept { return emptyText_; }
    void setEmptyText(CString text) { set(emptyText_, std::move(text)); }

    /// Whether views go on showing the selection while the keyboard is elsewhere.
    bool showsSelectionAlways() const noexcept { return showsSelectionAlways_; }
    void setShowsSelectionAlways(bool shows) { set(showsSelectionAlways_, shows); }

    /// Shows only rows that match the text (see TreeFilter and searchText), and those above them. A text
    /// without words shows all again, with selection, focus and the row at the upper edge as they were before
    /// the filter, but for rows that were selected meanwhile: these stay selected and are revealed.
    void setFilter(CString text);
    const CString& filter() const noexcept { return filter_.text(); }

    /// The row at the upper edge of the view; null when there is none, or nobody scrolled. Views say when
    /// they scroll; a program that sets it makes them scroll.
    TreeItem* firstVisible() const noexcept { return firstVisible_; }
    void setFirstVisible(TreeItem* item);

    // -- Selection (tree_control_selection.cpp)

    /// In the order of selecting. Good until the selection changes.
    const std::vector<TreeItem*>& selection() const noexcept { return selection_.items(); }
    std::size_t selectionCount() const noexcept { return selection_.count(); }

    /// The row that keys start from, and the one that ranges start from; null for none.
    TreeItem* focus() const noexcept { return focus_; }
    TreeItem* anchor() const noexcept { return anchor_; }
    void setFocus(TreeItem* item);

    /// Adds a row to the selection or takes it out. Neither expands anything.
    void select(TreeItem& item, bool on);

    /// Makes the selection what is given, in that order, and focuses the last. Rows that do not pass the
    /// filter are left out.
    void setSelection(const std::vector<TreeItem*>& items);

    /// Puts a selection back, in that order, and the focus unless it is null: for a program that has replaced
    /// rows or follows something else. It is nobody's choice, so it goes when the filter goes, and ranges
    /// start where they did. Rows that do not pass the filter are left out.
    void restoreSelection(const std::vector<TreeItem*>& items, TreeItem* focus);

    /// While a filter is set: whether a row, which may be gone by now, is going to be selected when the
    /// filter goes, and letting a row be so that takes the place of one that is gone.
    bool isRemembered(const TreeItem* item) const noexcept { return beforeFilter_.holds(item); }
    void remember(TreeItem& item);

    /// All rows that could be seen by scrolling, from top to bottom.
    void selectAll();

    // -- What the user does (tree_control_selection.cpp, tree_control_keys.cpp)

    /// A click on a row; null for the empty area. Alone it selects that row only; with control it turns the
    /// row over; with shift it selects from the anchor to the row; with both it adds these. A view that lets
    /// the user drag clicks on a selected row when the button is released.
    void click(TreeItem* item, Modifiers modifiers = {});
    void doubleClick(TreeItem& item);

    /// Another click on the label of the only selected row. Edits it when that is allowed.
    void clickLabel(TreeItem& item);
    void setEditOnClick(bool allowed) noexcept { editOnClick_ = allowed; }

    /// What a key does: true when it was of use.
    bool key(TreeKeyCode code, Modifiers modifiers = {});

    /// Goes to the next row, around the end, whose label begins with what was typed, without regard to case;
    /// the row with the focus counts when more than one letter was typed. The view says what belongs
    /// together.
    bool typed(CStringView prefix);

    /// How many rows a page is; at least 1.
    void setPageRows(std::size_t rows) noexcept { pageRows_ = rows > 0 ? rows : 1; }

    /// Selects the row, unless it is selected; null for the empty area, which deselects all.
    void contextMenu(TreeItem* item, TreePoint point);

    // -- Editing a label (tree_control_edit.cpp)

    /// Asks the owner and has the views begin, with the label or with another text. False when it may not be,
    /// or another label is being edited.
    bool editLabel(TreeItem& item, const std::optional<CString>& text = std::nullopt);
    TreeItem* editedItem() const noexcept { return edited_; }

    /// What is wrong with a text that is being typed as the label; empty when nothing is. Views show it.
    virtual CString problemOfLabel(const TreeItem& item, const CString& text) const;

    /// Ends it with a text, or without one when the user gave up. A view closes its editor before the call.
    void finishEdit(const std::optional<CString>& text);

    // -- Dragging (tree_control_drag.cpp)

    /// Begins to drag the selection. False when there is none or the owner objects.
    bool beginDrag();
    bool isDragging() const noexcept { return dragging_; }

    /// Whether the selection can be dropped there (null: the empty area), which is then the drop place; else
    /// there is none.
    bool dragOver(TreeItem* target, DropPosition position);
    /// The pointer is over no place of the tree any more.
    void dragLeave();
    bool hasDropPlace() const noexcept { return hasDropPlace_; }
    TreeItem* dropTarget() const noexcept { return dropTarget_; }
    DropPosition dropPosition() const noexcept { return dropPosition_; }

    /// Drops at the drop place; without one it is as good as cancelled.
    void drop();
    void cancelDrag();

    void attach(TreeObserver& observer) { observers_.attach(observer); }
    void detach(const TreeObserver& observer) { observers_.detach(observer); }

protected:
    // Hooks for classes that derive from it. They are called when the tree is in order again and may change
    // it, except where it says otherwise.

    /// What the filter looks at in a row: lines parted by "\n". It may be asked before the row is in the
    /// tree, so it depends on the row's label and record alone, and changes nothing.
    virtual CString searchText(const TreeItem& item) const;

    /// The text that the editing of a label begins with.
    virtual CString editText(const TreeItem& item) const;

    /// Whether the label may be edited.
    virtual bool onBeginLabelEdit(TreeItem& item);

    /// Whether the row takes on the text that was typed.
    virtual bool onEndLabelEdit(TreeItem& item, const CString& text);

    /// Comes once for every onBeginLabelEdit that agreed, however the editing ended: also when the user gave
    /// up or the row is gone.
    virtual void onLabelEditEnded() {}

    virtual bool onBeginDrag() { return true; }

    /// The selected rows that are not below another selected one, from top to bottom.
    std::vector<TreeItem*> topmostSelected() const;

    /// Comes for places that are neither dragged themselves nor below a dragged row. Changes nothing.
    virtual bool onDragOver(TreeItem* target, DropPosition position);

    /// Moves the selected rows to the place, unless overridden.
    virtual void onDrop(TreeItem* target, DropPosition position);
    /// The user lets go, and the place, or what was dragged, has gone from the tree under the pointer.
    virtual void onDropLost() {}

    virtual void onContextMenu(TreeItem* item, TreePoint point);
    virtual void onDoubleClick(TreeItem& item);

    /// A key that the control has no use for.
    virtual bool onKey(TreeKeyCode code, Modifiers modifiers);

    /// A record was attached: to a new row, or by replaceChildren. Changes nothing.
    virtual void onDataAttached(TreeItem& item);

    /// The row is no longer in the tree and goes now, children before their parents. Changes nothing.
    virtual void onDeleteItem(TreeItem& item);
    virtual void onSelectionChanged() {}
    /// The same, only when it was the user's choice, by a click or a key; comes behind it.
    virtual void onUserSelected() {}

private:
    friend class TreeItemWatch;
    using Placing = std::function<void(TreeItem& item, TreeItem& parent, std::size_t row)>;

    const TreeItem& under(const TreeItem* parent) const noexcept { return parent ? *parent : rows_.root(); }

    TreeItem& make(TreeRow content);
    void tellInsertion(
        TreeItem& parent, std::size_t shownRow, std::size_t count, const std::function<void()>& change);
    void linkRows(TreeItem& parent, std::size_t row, const std::vector<TreeItem*>& items);
    void removeRun(const std::vector<TreeItem*>& run);
    void tellRemoval(
        const std::vector<TreeItem*>& run, std::size_t shownCount, const std::function<void()>& change);
    void deleteItems(const std::vector<TreeItem*>& items);
    bool moveRow(TreeItem& item, TreeItem* parent, std::size_t row);
    void place(TreeItem& item, TreeItem& parent, std::size_t row);
    void placeAndReset(TreeItem& item, TreeItem& parent, std::size_t row);
    void moveKept(const TreeMatch& match, const Placing& placing);
    void insertNew(TreeItem* parent, const TreeMatch& match, std::vector<TreeRow>& contents);
    void takeOver(const TreeMatch& match, std::vector<TreeRow>& contents);
    bool takeOver(TreeItem& item, TreeRow& content);
    void removeStale(const TreeMatch& match);
    void applyLabel(TreeItem& item, CString text);
    void tellChanged(TreeItem& item);
    bool passes(const TreeItem& item) const;
    void relabelled(TreeItem& item);
    void refilter(TreeItem& item);
    void hide(TreeItem& item);
    void hideUpTo(TreeItem& item, const TreeItem& top);
    void applyFilter(bool wasActive);
    void rememberView();
    void restoreView();
    void revealSelection();
    void chosen(bool differs) noexcept;

    void setExpanded(TreeItem& item, bool on);
    bool isGone(const TreeItem* item) const noexcept;
    void leave(TreeItem* refuge);
    void leaveHidden();
    void forgetWatches();
    void collapseInto(const std::vector<TreeItem*>& tops);

    bool changeFocus(TreeItem* item) noexcept;
    void selectOnly(TreeItem& item);
    void selectRange(TreeItem& to, bool adding);
    std::vector<TreeItem*> range(TreeItem& from, TreeItem& to) const;
    TreeItem* keyTarget(TreeKeyCode code);
    TreeItem* pageFrom(TreeItem& item, bool down) const;
    void moveFocus(TreeItem& item, Modifiers modifiers);
    bool keyAcross(bool expanding, Modifiers modifiers);
    bool expandSelected(bool on);
    bool expandSelectedRows();
    bool collapseSelectedRows();

    void endEdit();
    bool isDropPlace(const TreeItem* target) const noexcept;
    void clearDropPlace();
    void endDrag();

    void settle();

    TreeRows rows_;
    CString emptyText_;
    TreeSelection selection_;
    TreeFilter filter_;
    TreeFilterMemory beforeFilter_;
    TreeObservers observers_;
    TreeItemWatch* watches_ = nullptr;
    TreeItem* focus_ = nullptr;
    TreeItem* anchor_ = nullptr;
    TreeItem* firstVisible_ = nullptr;
    TreeItem* edited_ = nullptr;
    TreeItem* dropTarget_ = nullptr;
    DropPosition dropPosition_ = DropPosition::onto;
    std::size_t pageRows_ = 10;
    bool editOnClick_ = false;
    bool showsSelectionAlways_ = true;
    bool chosenWhileFiltered_ = false;
    bool changedWhileEdited_ = false;
    bool dragging_ = false;
    bool hasDropPlace_ = false;
    bool dropPlaceLost_ = false;

    /// What is told when the operation under way is through.
    struct Pending {
        bool selection = false;
        bool byUser = false; ///< the change of the selection
        bool focus = false;
        bool firstVisible = false;
        bool editEnded = false;
        bool dropPlace = false;
    };
    Pending pending_;
};

} // namespace ryv
