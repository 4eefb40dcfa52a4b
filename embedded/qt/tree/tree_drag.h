// Dragging the selected rows of a tree view.
#pragma once

#include "toolkit/tree_control.h"

#include <QPoint>
#include <QTimer>

class QMimeData;
class QPixmap;

namespace drafta {

class TreeView;

/// From the moment at which the pointer has moved far enough. Rows may come and go while they are dragged.
class TreeDrag {
public:
    /// View and control outlive it; the view may end while rows are dragged.
    TreeDrag(TreeView& view, ryv::TreeControl& control);

    /// Returns when the user has let go of the rows, or given up. What the drop leads to may ask questions.
    void run();

    /// The pointer is at a place of the viewport. Whether rows of this tree can be dropped there.
    bool over(const QMimeData& rows, const QPoint& at);
    void leave();
    /// The rows are let go of at the last place.
    void arrived();

    /// What is at the pointer while rows are dragged.
    QPixmap picture() const;

private:
    struct Place {
        ryv::TreeItem* target;
        ryv::DropPosition position;
    };
    Place placeAt(const QPoint& at) const;
    bool look();
    int scrollStep() const;
    void scroll();
    void expandHovered();
    void stopTimers();

    TreeView& view_;
    ryv::TreeControl& control_;
    QPoint at_;
    QTimer scrolling_;
    QTimer resting_;                         // runs while the pointer rests on a row that is collapsed
    const ryv::TreeItem* hovered_ = nullptr; // only compared
};

} // namespace drafta
