// The filter above a tree, pages and notices.
#include "tests/embedded/qt/tree_view_fixture.h"

#include "embedded/qt/tree/notice_view.h"
#include "embedded/qt/tree/tree_pane.h"
#include "embedded/qt/tree/tree_views.h"
#include "toolkit/control_page.h"

#include <QAccessible>
#include <QLabel>
#include <QToolButton>

namespace drafta::test {
namespace {

class TreePaneTest : public testing::Test {
protected:
    TreePaneTest() {
        for (const char16_t* const label : {u"Panel 1", u"Panel 2", u"Power"})
            tree.add(nullptr, label);
        pane.show();
        QApplication::setActiveWindow(&pane);
        filter->setFocus();
        QApplication::processEvents();
    }
    void key(int code, Qt::KeyboardModifiers held = {}) {
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(code), held);
        QApplication::processEvents();
    }

    RecordingTree tree;
    ViewContext context;
    TreePane pane{tree, context, nullptr};
    QLineEdit* filter = pane.findChild<QLineEdit*>();
    TreeView* view = static_cast<TreeView*>(pane.findChild<QTreeView*>());
};

TEST_F(TreePaneTest, typing_filtersAndTellsHowManyMatch) {
    QTest::keyClicks(filter, "panel");
    EXPECT_EQ(tree.shownChildCount(nullptr), 2u);
    QApplication::processEvents();
    EXPECT_EQ(filter->accessibleDescription(), "2 matches");
    QTest::keyClicks(filter, "x");
    QApplication::processEvents();
    EXPECT_EQ(filter->accessibleDescription(), "Nothing matches");
    key(Qt::Key_Escape);
    EXPECT_EQ(tree.shownChildCount(nullptr), 3u);
    EXPECT_EQ(filter->accessibleDescription(), "");
    tree.setFilter(u"power");
    EXPECT_EQ(filter->text(), "power");
}

TEST_F(TreePaneTest, keys_leadFromTheFieldToTheRowsAndBack) {
    key(Qt::Key_Down);
    EXPECT_TRUE(view->hasFocus());
    EXPECT_EQ(tree.selected(), QStringList({"Panel 1"}));
    key(Qt::Key_F, Qt::ControlModifier);
    EXPECT_TRUE(filter->hasFocus());
    key(Qt::Key_Escape);
    EXPECT_TRUE(view->hasFocus());
    tree.setFilter(u"power");
    key(Qt::Key_Escape);
    EXPECT_EQ(tree.shownChildCount(nullptr), 3u);
}

TEST(NoticeViewTest, notice_isShownOfferedAndClosed) {
    ryv::NoticeLine notice(5);
    ViewContext context;
    QWidget window;
    const std::unique_ptr<QWidget> view(makeNoticeView(notice, context, &window));
    window.show();
    EXPECT_FALSE(view->isVisible());
    int accepted = 0;
    notice.tell(u"12 drawings were moved.", u"Undo", [&] { ++accepted; });
    EXPECT_TRUE(view->isVisible());
    EXPECT_EQ(view->findChild<QLabel*>()->text(), "12 drawings were moved.");
    view->findChild<QToolButton*>("noticeOffer")->click();
    EXPECT_EQ(accepted, 1);
    EXPECT_FALSE(view->isVisible());
    notice.tell(u"Saved.");
    EXPECT_FALSE(view->findChild<QToolButton*>("noticeOffer")->isVisible());
    view->findChild<QToolButton*>("noticeClose")->click();
    EXPECT_TRUE(notice.text().empty());
}

TEST(PageViewTest, buttons_pressTheModelAndFollowIt) {
    ryv::Button refresh(1);
    ryv::Button menu(2);
    refresh.setName(u"REFRESH");
    refresh.setTooltip(u"Read again");
    menu.setLabel(u"&New");
    menu.setDropDown(true);
    RecordingTree tree;
    ryv::NoticeLine notice(5);
    ryv::ControlPage page(3);
    page.addButton(refresh);
    page.addGap();
    page.addButton(menu);
    page.setContent(tree);
    page.setNotice(notice);
    ViewContext context;
    const std::unique_ptr<QWidget> view(makePageView(page, context, nullptr));
    view->show();
    auto* const button = view->findChild<QToolButton*>("REFRESH");
    ASSERT_TRUE(button);
    int presses = 0;
    const auto counts = refresh.pressed.subscribe([&presses](ryv::Button&) { ++presses; });
    button->click();
    EXPECT_EQ(presses, 1);
    EXPECT_EQ(button->accessibleName(), "Read again");
    refresh.setEnabled(false);
    button->click();
    EXPECT_EQ(presses, 1);
    EXPECT_TRUE(view->findChild<QTreeView*>());
    notice.tell(u"Read.");
    EXPECT_TRUE(view->findChild<QFrame*>("notice")->isVisible());
}

} // namespace
} // namespace drafta::test
