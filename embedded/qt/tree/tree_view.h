// The rows of a tree control on the screen.
#pragma once

#include "base/event.h"
#include "embedded/qt/controls/control_view.h"
#include "embedded/qt/tree/label_editor.h"
#include "embedded/qt/tree/tree_drag.h"
#include "embedded/qt/tree/tree_follower.h"
#include "embedded/qt/tree/type_ahead.h"
#include "toolkit/tree_item_watch.h"

#include <QPointer>
#include <QTimer>
#include <QTreeView>
#include <memory>
#include <optional>

namespace drafta {

class TreeModel;
class TreeRowDelegate;

/// Draws, and hands gestures on. Selection, focus, what is expanded, the row at the upper edge and editing
/// belong to the control; Qt's own handling of mouse, keys and editors is never reached.
class TreeView : public QTreeView {
public:
    TreeView(ryv::TreeControl& control, ViewContext& context, QWidget* parent);
    ~TreeView() override;

    TreeModel& treeModel() const { return *model_; }

    /// The user wants to look something up (Ctrl+F).
    std::function<void()> find;

    // -- For the follower

    /// Expansions that follow cost nothing until then.
    void layOutLater() { scheduleDelayedItemsLayout(); }
    QModelIndexList indexesOnScreen() const;
    /// Scrolls until the upper edge is so many pixels into a row.
    void scrollToUpperEdge(const QModelIndex& index, int offset);
    void reveal(const QModelIndex& index);
    void beginEdit(ryv::TreeItem& item, const ryv::CString& text);
    void endEdit();

protected:
    /// Carries rows, which it takes, until the user lets go of them: Qt::MoveAction when they are to go to
    /// the drop place.
    virtual Qt::DropAction carry(QMimeData* rows);

    void doItemsLayout() override;
    void updateGeometries() override;
    void scrollContentsBy(int dx, int dy) override;
    void dataChanged(const QModelIndex& from, const QModelIndex& to, const QList<int>& roles) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    QItemSelectionModel::SelectionFlags selectionCommand(
        const QModelIndex& index, const QEvent* event) const override;
    QRegion visualRegionForSelection(const QItemSelection& selection) const override;
    void paintEvent(QPaintEvent* event) override;
    void drawRow(
        QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void drawBranches(QPainter* painter, const QRect& rect, const QModelIndex& index) const override;
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;

    // tree_view_mouse.cpp
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

    // tree_view_drop.cpp
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

    // tree_view_keys.cpp
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    friend class TreeDrag;

    /// The left button is down.
    struct Press {
        Press(ryv::TreeControl& control, ryv::TreeItem& item) : row(control, item) {}
        ryv::TreeItemWatch row;
        QPoint at;
        quint64 since = 0;          ///< by the clock of the events, in milliseconds
        bool clicksLater = false;   ///< the row was selected, and may be going to be dragged
        bool onChosenLabel = false; ///< of the only selected row, in a view that had the keyboard
    };

    void setUp();
    void followControl();
    bool isOnBranch(const QModelIndex& index, const QPoint& at) const;
    bool isOnLabel(const QModelIndex& index, const QPoint& at) const;
    QStyleOptionViewItem optionOf(const QModelIndex& index) const;
    void press(ryv::TreeItem& item, const QMouseEvent& event);
    void laidOut();
    void placeEditor();
    QPalette::ColorGroup selectionGroup() const;
    void paintNothing(QPainter& painter) const;
    void paintDropPlace(QPainter& painter) const;
    bool typeLetters(const QKeyEvent& event);
    void runKey(ryv::TreeKeyCode code, ryv::Modifiers modifiers);
    void perform(ryv::TreeItem& item, std::function<void(ryv::TreeItem& item)> work);

    ryv::TreeControl& control_;
    ViewContext& context_;
    TreeModel* model_;
    TreeRowDelegate* delegate_;
    QPointer<LabelEditor> editor_;
    TypeAhead typeAhead_;
    std::optional<Press> press_;
    TreeDrag drag_;
    QTimer labelClick_{this}; // runs while a click may turn out to be the first of two
    std::unique_ptr<ryv::TreeItemWatch> clickedLabel_;
    bool gotKeyboardByPress_ = false;
    int layingOut_ = 0;
    ryv::Subscription changes_;
    std::optional<TreeFollower> follower_;
};

} // namespace drafta
