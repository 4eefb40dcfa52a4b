// The keyboard in a tree view.
#include "embedded/qt/qt_text.h"
#include "embedded/qt/tree/tree_view.h"

#include <QContextMenuEvent>
#include <QKeyEvent>

#include <optional>

namespace drafta {

namespace {

using ryv::TreeKeyCode;

std::optional<TreeKeyCode> codeOf(const QKeyEvent& event) {
    switch (event.key()) {
    case Qt::Key_Up:
        return TreeKeyCode::up;
    case Qt::Key_Down:
        return TreeKeyCode::down;
    case Qt::Key_Left:
        return TreeKeyCode::left;
    case Qt::Key_Right:
        return TreeKeyCode::right;
    case Qt::Key_Home:
        return TreeKeyCode::home;
    case Qt::Key_End:
        return TreeKeyCode::end;
    case Qt::Key_PageUp:
        return TreeKeyCode::pageUp;
    case Qt::Key_PageDown:
        return TreeKeyCode::pageDown;
    case Qt::Key_Space:
        return TreeKeyCode::space;
    case Qt::Key_F2:
        return TreeKeyCode::edit;
    case Qt::Key_Asterisk:
        return TreeKeyCode::expandAll;
    case Qt::Key_Escape:
        return TreeKeyCode::escape;
    case Qt::Key_Delete:
        return TreeKeyCode::remove;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return TreeKeyCode::enter;
    case Qt::Key_A:
        if (event.modifiers().testFlag(Qt::ControlModifier))
            return TreeKeyCode::selectAll;
        return {};
    default:
        return {};
    }
}

/// Of those that may ask something, the answer does not wait for the question.
bool mayAsk(TreeKeyCode code) {
    return code == TreeKeyCode::edit || code == TreeKeyCode::remove || code == TreeKeyCode::enter;
}

bool isFind(const QKeyEvent& event) {
    return event.matches(QKeySequence::Find);
}

/// The key of that name comes as an event of its own.
bool isMenuKey(const QKeyEvent& event) {
    return event.key() == Qt::Key_F10 && event.modifiers() == Qt::ShiftModifier;
}

bool isArrow(const QKeyEvent& event) {
    return event.key() == Qt::Key_Up || event.key() == Qt::Key_Down || event.key() == Qt::Key_Left ||
           event.key() == Qt::Key_Right;
}

/// With these held down, keys are the window's; but Alt with an arrow key moves rows.
bool isForeign(const QKeyEvent& event) {
    return event.modifiers().testFlag(Qt::MetaModifier) ||
           (event.modifiers().testFlag(Qt::AltModifier) && !isArrow(event));
}

bool isAlphabetic(const QString& letters) {
    return !letters.isEmpty() && letters.at(0).isPrint();
}

bool isOneLetter(const QString& text) {
    return text.count(text.at(0), Qt::CaseInsensitive) == text.size();
}

} // namespace

/// While the rows have the keyboard, shortcuts of the window with the same keys have to wait.
bool TreeView::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride) {
        auto& key = static_cast<QKeyEvent&>(*event);
        const bool letter = key.modifiers() == Qt::NoModifier && isAlphabetic(key.text());
        if (!isForeign(key) && (codeOf(key) || letter || (find && isFind(key)))) {
            event->accept();
            return true;
        }
    }
    return QTreeView::event(event);
}

void TreeView::keyPressEvent(QKeyEvent* event) {
    event->ignore();
    labelClick_.stop();
    if (isForeign(*event))
        return;
    if (find && isFind(*event)) {
        event->accept();
        return find();
    }
    if (isMenuKey(*event)) {
        event->accept();
        QContextMenuEvent asked(QContextMenuEvent::Keyboard, QPoint(), QPoint());
        return contextMenuEvent(&asked);
    }
    const std::optional<TreeKeyCode> code = codeOf(*event);
    const bool inText = code == TreeKeyCode::space && typeAhead_.isUnderWay(event->timestamp());
    if (!code || inText) {
        event->setAccepted(typeLetters(*event));
        return;
    }
    typeAhead_.end();
    event->accept();
    const ryv::Modifiers modifiers{event->modifiers().testFlag(Qt::ControlModifier),
        event->modifiers().testFlag(Qt::ShiftModifier), event->modifiers().testFlag(Qt::AltModifier)};
    if (mayAsk(*code) || modifiers.alt)
        return runKey(*code, modifiers);
    bool used = control_.key(*code, modifiers);
    if (!used && code == TreeKeyCode::escape && !control_.filter().empty()) {
        control_.setFilter({});
        used = true;
    }
    event->setAccepted(used);
}

void TreeView::runKey(TreeKeyCode code, ryv::Modifiers modifiers) {
    context_.perform([&control = control_, code, modifiers] { control.key(code, modifiers); });
}

/// The same letter again and again leads from row to row.
bool TreeView::typeLetters(const QKeyEvent& event) {
    if (event.modifiers().testFlag(Qt::ControlModifier) || !isAlphabetic(event.text()))
        return false;
    const QString& typed = typeAhead_.add(event.text(), event.timestamp());
    if (!control_.typed(fromQt(typed)) && isOneLetter(typed))
        control_.typed(fromQt(typed.left(1)));
    return true;
}

void TreeView::focusInEvent(QFocusEvent* event) {
    gotKeyboardByPress_ = event->reason() == Qt::MouseFocusReason;
    QTreeView::focusInEvent(event);
    viewport()->update();
}

void TreeView::focusOutEvent(QFocusEvent* event) {
    labelClick_.stop();
    typeAhead_.end();
    QTreeView::focusOutEvent(event);
    viewport()->update();
}

} // namespace drafta
