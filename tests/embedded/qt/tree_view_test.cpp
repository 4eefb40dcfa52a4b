// Mouse, keyboard and editing in a tree view.
#include "tests/embedded/qt/tree_view_fixture.h"

#include <QContextMenuEvent>
#include <QLabel>

namespace drafta::test {
namespace {

constexpr auto ctrl = Qt::ControlModifier;
constexpr auto shift = Qt::ShiftModifier;

// -- Mouse

TEST_F(TreeViewTest, click_withModifiers_selectsAsTheControlDoes) {
    click(a);
    EXPECT_EQ(tree.selected(), QStringList({"A"}));
    click(c, ctrl);
    EXPECT_EQ(tree.selected(), QStringList({"A", "C"}));
    click(d, shift);
    EXPECT_EQ(tree.selected(), QStringList({"C", "D"}));
    press(QPoint(50, 390));
    EXPECT_EQ(tree.selected(), QStringList());
    EXPECT_EQ(tree.focus(), &d);
}

TEST_F(TreeViewTest, click_onSelectedRow_actsWhenTheButtonIsReleased) {
    tree.setSelection({&a, &b});
    press(pointOf(a));
    EXPECT_EQ(tree.selectionCount(), 2u);
    release(pointOf(a));
    EXPECT_EQ(tree.selected(), QStringList({"A"}));
}

TEST_F(TreeViewTest, click_onSelectedRowThatGoesMeanwhile_doesNothing) {
    tree.setSelection({&a, &b});
    press(pointOf(a));
    const QPoint at = pointOf(a);
    tree.remove(a);
    release(at);
    EXPECT_EQ(tree.selected(), QStringList({"B"}));
}

TEST_F(TreeViewTest, click_onBranch_expandsAndCollapsesWithoutSelecting) {
    press(branchOf(sub));
    EXPECT_FALSE(sub.expanded());
    settle();
    EXPECT_FALSE(view->isExpanded(indexOf(sub)));
    mouse(QEvent::MouseButtonDblClick, branchOf(sub));
    EXPECT_TRUE(sub.expanded());
    EXPECT_EQ(tree.selectionCount(), 0u);
    EXPECT_EQ(tree.told, QStringList());
}

TEST_F(TreeViewTest, doubleClickAndMenus_reachTheOwner) {
    mouse(QEvent::MouseButtonDblClick, pointOf(c));
    const auto menu = [this](QContextMenuEvent::Reason reason, const QPoint& at) {
        QContextMenuEvent event(reason, at, view->viewport()->mapToGlobal(at));
        QApplication::sendEvent(view->viewport(), &event);
    };
    menu(QContextMenuEvent::Mouse, pointOf(b));
    EXPECT_EQ(tree.selected(), QStringList({"B"}));
    menu(QContextMenuEvent::Keyboard, QPoint());
    menu(QContextMenuEvent::Mouse, QPoint(50, 390));
    EXPECT_EQ(tree.told, QStringList({"open C", "menu B", "menu B", "menu "}));
}

TEST_F(TreeViewTest, doubleClick_rowThatIsGoneWhenItsTurnComes_isForgotten) {
    std::function<void()> waiting;
    context.perform = [&waiting](std::function<void()> work) { waiting = std::move(work); };
    mouse(QEvent::MouseButtonDblClick, pointOf(c));
    tree.remove(c);
    waiting();
    EXPECT_EQ(tree.told, QStringList());
}

// -- Keys

TEST_F(TreeViewTest, keys_walkSelectAndReachTheOwner) {
    tree.setSelection({&a});
    key(Qt::Key_Down);
    key(Qt::Key_Down, shift);
    EXPECT_EQ(tree.selected(), QStringList({"B", "Sub"}));
    key(Qt::Key_End);
    EXPECT_EQ(tree.focus(), &other);
    key(Qt::Key_Home);
    key(Qt::Key_Left);
    EXPECT_FALSE(project.expanded());
    key(Qt::Key_Asterisk, {}, "*");
    EXPECT_TRUE(sub.expanded());
    key(Qt::Key_A, ctrl);
    EXPECT_EQ(tree.selectionCount(), 7u);
    key(Qt::Key_Delete);
    key(Qt::Key_Return);
    const auto told = [](ryv::TreeKeyCode code) {
        return QStringLiteral("key %1").arg(static_cast<int>(code));
    };
    EXPECT_EQ(tree.told, QStringList({told(ryv::TreeKeyCode::remove), told(ryv::TreeKeyCode::enter)}));
}

TEST_F(TreeViewTest, letters_withinASecond_makeUpOneText) {
    TreeItem& panel = tree.add(nullptr, u"Panel x");
    tree.add(nullptr, u"Power");
    TreeItem& last = tree.add(nullptr, u"Panel y");
    type("pa");
    EXPECT_EQ(tree.focus(), &panel);
    type("nel y");
    EXPECT_EQ(tree.focus(), &last);
    now += 1000;
    type("p");
    EXPECT_EQ(toQt(tree.focus()->label()), "Project");
    type("p");
    EXPECT_EQ(tree.focus(), &panel); // the same letter goes on
}

TEST_F(TreeViewTest, shortcutsOfTheWindow_withKeysOfTheRows_wait) {
    const auto isClaimed = [this](int code, Qt::KeyboardModifiers held, const QString& text = {}) {
        QKeyEvent event(QEvent::ShortcutOverride, code, held, text);
        event.ignore();
        QApplication::sendEvent(view.get(), &event);
        return event.isAccepted();
    };
    EXPECT_TRUE(isClaimed(Qt::Key_F2, {}));
    EXPECT_TRUE(isClaimed(Qt::Key_A, ctrl));
    EXPECT_TRUE(isClaimed(Qt::Key_P, {}, "p"));
    EXPECT_FALSE(isClaimed(Qt::Key_P, ctrl));
    EXPECT_TRUE(isClaimed(Qt::Key_Left, Qt::AltModifier));
    EXPECT_FALSE(isClaimed(Qt::Key_F2, Qt::AltModifier));
}

// -- Editing

TEST_F(TreeViewTest, edit_fileName_preselectsWhatStandsBeforeTheEnding) {
    const std::pair<const char16_t*, const char*> names[] = {
        {u"Panel 2.dwg", "Panel 2"}, {u"Version 1.5", "Version 1.5"}, {u".dwg", ".dwg"}, {u"Sub", "Sub"}};
    tree.setSelection({&a});
    for (const auto& [name, selected] : names) {
        tree.setLabel(a, name);
        key(Qt::Key_F2);
        ASSERT_TRUE(editor());
        EXPECT_EQ(editor()->text(), toQt(name));
        EXPECT_EQ(editor()->selectedText(), selected);
        key(Qt::Key_Escape);
        settle();
    }
}

/// The editor is gone by the time at which the owner is asked, which may rebuild every row.
TEST_F(TreeViewTest, edit_endsAsTheUserEndsIt) {
    const std::tuple<const char*, std::function<void()>, QStringList> endings[] = {
        {"enter", [this] { key(Qt::Key_Return); }, {"rename A to A1", "edit ended"}},
        {"escape", [this] { key(Qt::Key_Escape); }, {"edit ended"}},
        {"the keyboard goes elsewhere", [this] { view->setFocus(); }, {"rename A to A1", "edit ended"}},
        {"a click",
            [this] {
                click(b);
                view->setFocus();
            },
            {"rename A to A1", "edit ended"}},
    };
    for (const auto& [name, end, told] : endings) {
        SCOPED_TRACE(name);
        tree.told.clear();
        tree.setLabel(a, u"A");
        ASSERT_TRUE(tree.editLabel(a));
        const QPointer<QLineEdit> open = editor();
        bool wasOpen = false;
        context.perform = [&](const std::function<void()>& work) {
            wasOpen = open && open->isVisible();
            work();
        };
        QTest::keyClicks(open, "A1");
        end();
        EXPECT_FALSE(wasOpen);
        EXPECT_EQ(tree.told, told);
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_FALSE(open);
        EXPECT_TRUE(view->hasFocus());
    }
}

TEST_F(TreeViewTest, edit_rowThatChangesOrGoes_isNotDisturbedOrEnds) {
    ASSERT_TRUE(tree.editLabel(a));
    QTest::keyClicks(editor(), "typed");
    tree.setLabel(a, u"from outside");
    tree.insert(&project, 0, ryv::TreeRow{u"New"});
    settle();
    EXPECT_EQ(editor()->text(), "typed");
    EXPECT_EQ(editor()->y(), view->visualRect(indexOf(a)).top());
    tree.remove(a);
    EXPECT_EQ(tree.told, QStringList({"edit ended"}));
    EXPECT_FALSE(editor() && editor()->isVisible());
}

TEST_F(TreeViewTest, edit_badName_isToldWhileItIsTyped) {
    ASSERT_TRUE(tree.editLabel(a));
    const auto* const problem = view->viewport()->findChild<QLabel*>("labelProblem");
    QTest::keyClicks(editor(), "A*");
    EXPECT_TRUE(problem->isVisible());
    EXPECT_EQ(problem->text(), "\"*\" cannot be in a name.");
    EXPECT_GE(problem->y(), editor()->geometry().bottom());
    QTest::keyClick(editor(), Qt::Key_Backspace);
    EXPECT_FALSE(problem->isVisible());
}

TEST_F(TreeViewTest, edit_ofARefusedName_beginsWithItAndItsProblem) {
    ASSERT_TRUE(tree.editLabel(a, u"typed*"));
    EXPECT_EQ(editor()->text(), "typed*");
    const auto* const problem = view->viewport()->findChild<QLabel*>("labelProblem");
    EXPECT_TRUE(problem->isVisible());
    EXPECT_GE(problem->y(), editor()->geometry().bottom());
}

TEST_F(TreeViewTest, selectionWithoutTheKeyboard_isMarkedWhenTheControlSaysSo) {
    tree.setSelection({&a});
    QWidget elsewhere;
    elsewhere.setFocusPolicy(Qt::StrongFocus);
    elsewhere.show();
    const auto looksLike = [this](const TreeItem& one, const TreeItem& another) {
        settle();
        const QImage image = view->viewport()->grab().toImage();
        const int edge = view->viewport()->width() - 2; // beside the label
        return image.pixel(edge, pointOf(one).y()) == image.pixel(edge, pointOf(another).y()) &&
               image.pixel(0, pointOf(one).y()) == image.pixel(0, pointOf(another).y());
    };
    for (const bool always : {true, false}) {
        tree.setShowsSelectionAlways(always);
        QApplication::setActiveWindow(view.get());
        view->setFocus();
        EXPECT_FALSE(looksLike(a, b));
        QApplication::setActiveWindow(&elsewhere);
        elsewhere.setFocus();
        EXPECT_EQ(looksLike(a, b), !always);
    }
    QApplication::setActiveWindow(view.get());
    ASSERT_TRUE(tree.editLabel(a)); // the editor is part of the view
    settle();
    EXPECT_NE(view->viewport()->grab().toImage().pixel(0, pointOf(a).y()),
        view->viewport()->grab().toImage().pixel(0, pointOf(b).y()));
}

TEST_F(TreeViewTest, edit_viewThatEnds_givesUp) {
    ASSERT_TRUE(tree.editLabel(a));
    view.reset();
    EXPECT_EQ(tree.told, QStringList({"edit ended"}));
    EXPECT_FALSE(tree.editedItem());
}

TEST_F(TreeViewTest, clickOnChosenLabel_whenNoSecondFollows_editsIt) {
    tree.setEditOnClick(true);
    click(a);
    click(a);
    EXPECT_FALSE(editor());
    fire("labelClick");
    EXPECT_TRUE(editor());
    key(Qt::Key_Escape);
    settle();
    click(a);
    mouse(QEvent::MouseButtonDblClick, pointOf(a));
    EXPECT_FALSE(view->findChild<QTimer*>("labelClick")->isActive());
}

} // namespace
} // namespace drafta::test
