// Dragging rows in a tree view. The test is the one who carries them.
#include "tests/embedded/qt/tree_view_fixture.h"

#include <QDropEvent>
#include <QScrollBar>

namespace drafta::test {
namespace {

class TreeDragTest : public TreeViewTest {
protected:
    void enter(const QMimeData& rows, const QPoint& at) {
        QDragEnterEvent event(at, Qt::MoveAction, &rows, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(view->viewport(), &event);
    }
    /// Whether the place takes the rows.
    bool over(const QMimeData& rows, const QPoint& at) {
        enter(rows, at);
        QDragMoveEvent event(at, Qt::MoveAction, &rows, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(view->viewport(), &event);
        return event.isAccepted();
    }
    Qt::DropAction dropAt(const QMimeData& rows, const QPoint& at) {
        enter(rows, at);
        QDropEvent event(at, Qt::MoveAction, &rows, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(view->viewport(), &event);
        return event.isAccepted() ? event.dropAction() : Qt::IgnoreAction;
    }
    void drag(const TreeItem& item) {
        press(pointOf(item));
        now += 200;
        mouse(QEvent::MouseMove, pointOf(item) + QPoint(0, 40));
        release(pointOf(item));
    }
    void dragTo(const TreeItem& item, const QPoint& to) {
        view->carrying = [this, to](const QMimeData& rows) { return dropAt(rows, to); };
        drag(item);
    }
};

TEST_F(TreeDragTest, drag_beginsFarEnoughAndLateEnough) {
    int drags = 0;
    view->carrying = [&drags](const QMimeData&) { return ++drags, Qt::IgnoreAction; };
    const auto move = [this](int pixels, quint64 later) {
        press(pointOf(a));
        now += later;
        mouse(QEvent::MouseMove, pointOf(a) + QPoint(0, pixels));
        release(pointOf(a));
    };
    move(QApplication::startDragDistance() - 1, 500);
    move(QApplication::startDragDistance(), 149);
    EXPECT_EQ(drags, 0);
    move(QApplication::startDragDistance(), 150);
    EXPECT_EQ(drags, 1);
    EXPECT_FALSE(tree.isDragging());
    tree.mayDrag = false;
    move(100, 500);
    EXPECT_EQ(drags, 1);
}

TEST_F(TreeDragTest, drop_thirdsOfTheRow_areBeforeOntoAndAfter) {
    dragTo(other, pointOf(a, 0.1));
    EXPECT_EQ(tree.rows(), "Project(Other A B Sub(C D))");
    settle();
    dragTo(other, pointOf(b, 0.9));
    EXPECT_EQ(tree.rows(), "Project(A B Other Sub(C D))");
    settle();
    dragTo(other, pointOf(sub, 0.5));
    EXPECT_EQ(tree.rows(), "Project(A B Sub(C D Other))");
    settle();
    dragTo(other, QPoint(50, 390));
    EXPECT_EQ(tree.rows(), "Project(A B Sub(C D)) Other");
}

TEST_F(TreeDragTest, drag_severalRows_goTogether) {
    tree.setSelection({&a, &c});
    dragTo(a, pointOf(other, 0.9));
    EXPECT_EQ(tree.rows(), "Project(B Sub(D)) Other A C");
    EXPECT_EQ(tree.selected(), QStringList({"A", "C"}));
}

TEST_F(TreeDragTest, over_placesThatAreNotAllowed_areRefused) {
    tree.mayDrop = [this](const TreeItem* target, DropPosition) { return target != &other; };
    view->carrying = [this](const QMimeData& rows) {
        EXPECT_FALSE(over(rows, pointOf(other)));
        EXPECT_FALSE(over(rows, pointOf(sub))); // is dragged itself
        EXPECT_FALSE(over(rows, pointOf(c)));   // stands below it
        EXPECT_FALSE(tree.hasDropPlace());
        EXPECT_TRUE(over(rows, pointOf(a)));
        EXPECT_TRUE(tree.hasDropPlace());
        const QMimeData foreign;
        EXPECT_FALSE(over(foreign, pointOf(a)));
        QDragLeaveEvent leave;
        QApplication::sendEvent(view->viewport(), &leave);
        EXPECT_FALSE(tree.hasDropPlace());
        return dropAt(rows, pointOf(other));
    };
    drag(sub);
    EXPECT_EQ(tree.rows(), "Project(A B Sub(C D)) Other");
    EXPECT_FALSE(tree.isDragging());
}

TEST_F(TreeDragTest, drag_rowsOrViewThatGoMeanwhile_endsWell) {
    view->carrying = [this](const QMimeData& rows) {
        EXPECT_TRUE(over(rows, pointOf(sub)));
        tree.remove(sub);
        EXPECT_FALSE(tree.hasDropPlace());
        settle();
        return Qt::MoveAction; // dropped before the pointer moved again
    };
    drag(a);
    EXPECT_EQ(tree.rows(), "Project(A B) Other");
    view->carrying = [this](const QMimeData&) {
        tree.remove(b);
        view.reset();
        return Qt::IgnoreAction;
    };
    press(pointOf(b));
    now += 200;
    mouse(QEvent::MouseMove, pointOf(b) + QPoint(0, 40));
    EXPECT_FALSE(tree.isDragging());
}

TEST_F(TreeDragTest, over_collapsedRow_expandsAfterAWhile) {
    tree.expand(sub, false);
    settle();
    view->carrying = [this](const QMimeData& rows) {
        over(rows, pointOf(sub));
        fire("dragRest");
        EXPECT_TRUE(sub.expanded());
        over(rows, pointOf(a)); // nothing to expand
        EXPECT_FALSE(view->findChild<QTimer*>("dragRest")->isActive());
        return Qt::IgnoreAction;
    };
    drag(other);
}

TEST_F(TreeDragTest, over_nearAnEdge_scrollsAndFollowsTheRows) {
    std::vector<ryv::TreeRow> rows(100);
    tree.insertRows(nullptr, ryv::TreeControl::atEnd, std::move(rows));
    settle();
    view->carrying = [this](const QMimeData& dragged) {
        const QPoint bottom(60, view->viewport()->height() - 3);
        over(dragged, bottom);
        const TreeItem* const first = tree.dropTarget();
        for (int i = 0; i < 10; ++i)
            fire("dragScroll");
        EXPECT_GT(view->verticalScrollBar()->value(), 50);
        EXPECT_NE(tree.dropTarget(), first);
        over(dragged, QPoint(60, 200));
        EXPECT_FALSE(view->findChild<QTimer*>("dragScroll")->isActive());
        return Qt::IgnoreAction;
    };
    drag(a);
}

} // namespace
} // namespace drafta::test
