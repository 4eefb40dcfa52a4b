// A tree in a view, with a hand on the mouse and one on the clock of the events.
#pragma once

#include "embedded/qt/qt_text.h"
#include "embedded/qt/tree/tree_model.h"
#include "embedded/qt/tree/tree_view.h"

#include <QApplication>
#include <QMimeData>
#include <QMouseEvent>
#include <QStringList>
#include <QTest>
#include <gtest/gtest.h>

#include <functional>
#include <memory>

namespace drafta::test {

using ryv::CString;
using ryv::DropPosition;
using ryv::TreeItem;

/// Tells what it was asked for, and allows what the test allows.
class RecordingTree final : public ryv::TreeControl {
public:
    RecordingTree() : TreeControl(1) {}

    QStringList told;
    bool mayDrag = true;
    std::function<bool(TreeItem* target, DropPosition position)> mayDrop = [](auto...) { return true; };

    TreeItem& add(TreeItem* parent, const char16_t* label) {
        return insert(parent, atEnd, ryv::TreeRow{label});
    }
    QStringList selected() const {
        QStringList labels;
        for (const TreeItem* const item : selection())
            labels.append(toQt(item->label()));
        return labels;
    }
    /// All rows in reading order, those below others in brackets.
    QString rows(const TreeItem* parent = nullptr) const {
        QString text;
        for (std::size_t i = 0; i < childCount(parent); ++i) {
            const TreeItem* const item = child(parent, i);
            text += (i ? " " : "") + toQt(item->label());
            if (item->childCount() > 0)
                text += "(" + rows(item) + ")";
        }
        return text;
    }

    CString problemOfLabel(const TreeItem&, const CString& text) const override {
        return text.find(u'*') == CString::npos ? CString() : CString(u"\"*\" cannot be in a name.");
    }

protected:
    bool onEndLabelEdit(TreeItem& item, const CString& text) override {
        told.append("rename " + toQt(item.label()) + " to " + toQt(text));
        return true;
    }
    void onLabelEditEnded() override { told.append(QStringLiteral("edit ended")); }
    bool onBeginDrag() override { return mayDrag; }
    bool onDragOver(TreeItem* target, DropPosition position) override { return mayDrop(target, position); }
    void onContextMenu(TreeItem* item, ryv::TreePoint) override {
        told.append("menu " + (item ? toQt(item->label()) : QString()));
    }
    void onDoubleClick(TreeItem& item) override { told.append("open " + toQt(item.label())); }
    bool onKey(ryv::TreeKeyCode code, ryv::Modifiers) override {
        told.append(QStringLiteral("key %1").arg(static_cast<int>(code)));
        return code != ryv::TreeKeyCode::escape;
    }
};

/// A view whose drags the test carries out.
class CarriedView final : public TreeView {
public:
    using TreeView::TreeView;
    std::function<Qt::DropAction(const QMimeData& rows)> carrying;

protected:
    Qt::DropAction carry(QMimeData* rows) override {
        const std::unique_ptr<QMimeData> owned(rows);
        const auto all = carrying; // the view may end meanwhile
        return all ? all(*rows) : Qt::IgnoreAction;
    }
};

/// Project(A B Sub(C D)) Other
class TreeViewTest : public testing::Test {
protected:
    void SetUp() override {
        view = std::make_unique<CarriedView>(tree, context, nullptr);
        view->resize(240, 400);
        view->show();
        view->activateWindow();
        QApplication::setActiveWindow(view.get());
        view->setFocus();
        tree.expandAll(nullptr, true);
        settle();
    }

    static void settle() { QApplication::processEvents(); }

    QModelIndex indexOf(const TreeItem& item) const { return view->treeModel().indexOf(&item); }
    /// In the label of a row; `part` from 0 at the upper edge to 1.
    QPoint pointOf(const TreeItem& item, double part = 0.5) const {
        const QRect row = view->visualRect(indexOf(item));
        return {row.left() + 28, row.top() + static_cast<int>(part * row.height())};
    }
    QPoint branchOf(const TreeItem& item) const {
        return {view->visualRect(indexOf(item)).left() - view->indentation() / 2, pointOf(item).y()};
    }

    void mouse(QEvent::Type type, const QPoint& at, Qt::KeyboardModifiers held = {},
        Qt::MouseButton button = Qt::LeftButton) {
        const bool up = type == QEvent::MouseButtonRelease;
        const bool moves = type == QEvent::MouseMove;
        QMouseEvent event(type, at, view->viewport()->mapToGlobal(at), moves ? Qt::NoButton : button,
            up ? Qt::NoButton : button, held);
        event.setTimestamp(now);
        QApplication::sendEvent(view->viewport(), &event);
    }
    void press(const QPoint& at, Qt::KeyboardModifiers held = {}) {
        mouse(QEvent::MouseButtonPress, at, held);
    }
    void release(const QPoint& at, Qt::KeyboardModifiers held = {}) {
        mouse(QEvent::MouseButtonRelease, at, held);
    }
    void click(const TreeItem& item, Qt::KeyboardModifiers held = {}) {
        press(pointOf(item), held);
        release(pointOf(item), held);
    }
    void key(int code, Qt::KeyboardModifiers held = {}, const QString& text = {}) {
        QKeyEvent event(QEvent::KeyPress, code, held, text);
        event.setTimestamp(now);
        QApplication::sendEvent(QApplication::focusWidget(), &event);
    }
    void type(const QString& text) {
        for (const QChar letter : text)
            key(letter.toUpper().unicode(), {}, letter);
    }
    QLineEdit* editor() const { return view->findChild<QLineEdit*>("labelEditor"); }
    /// What a timer of the view does when its time has come.
    void fire(const char* timer) const {
        auto* const found = view->findChild<QTimer*>(QLatin1String(timer));
        ASSERT_TRUE(found && found->isActive()) << timer;
        if (found->isSingleShot())
            found->stop();
        QMetaObject::invokeMethod(found, "timeout");
    }

    RecordingTree tree;
    TreeItem& project = tree.add(nullptr, u"Project");
    TreeItem& a = tree.add(&project, u"A");
    TreeItem& b = tree.add(&project, u"B");
    TreeItem& sub = tree.add(&project, u"Sub");
    TreeItem& c = tree.add(&sub, u"C");
    TreeItem& d = tree.add(&sub, u"D");
    TreeItem& other = tree.add(nullptr, u"Other");
    ViewContext context;
    std::unique_ptr<CarriedView> view;
    quint64 now = 10'000;
};

} // namespace drafta::test
