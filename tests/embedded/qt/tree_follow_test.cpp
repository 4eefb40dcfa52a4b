// A tree view and its model under whatever happens to the rows.
#include "tests/embedded/qt/tree_view_fixture.h"
#include "tests/support/random.h"

#include <QAbstractItemModelTester>
#include <QAccessible>
#include <QScrollBar>

#include <ctime>
#include <map>
#include <string>
#include <vector>

namespace drafta::test {
namespace {

using ryv::test::Random;

CString firstLetter(const CString& label, const ryv::TreeItemData*) {
    return label.substr(0, 1);
}

std::vector<ryv::TreeRow> manyRows(std::size_t count) {
    std::vector<ryv::TreeRow> rows(count);
    for (std::size_t i = 0; i < count; ++i)
        rows[i].label = fromQt(QString::number(i));
    return rows;
}

/// A view that has to show what the control holds, whatever the order of things.
class Story {
public:
    explicit Story(std::uint64_t seed) : chance_(seed) { view_.resize(200, 300); }

    const char* step();
    void check();

private:
    std::vector<TreeItem*> all() {
        std::vector<TreeItem*> items;
        for (TreeItem* at = tree_.child(nullptr, 0); at; at = nextInTree(*at, nullptr))
            items.push_back(at);
        return items;
    }
    CString label() { return CString(chance_.pick({u"a", u"ab", u"B", u"abc", u"c"})); }
    std::vector<ryv::TreeRow> rows(std::size_t limit) {
        std::vector<ryv::TreeRow> made(chance_.below(limit));
        for (ryv::TreeRow& row : made)
            row.label = label();
        return made;
    }

    Random chance_;
    RecordingTree tree_;
    ViewContext context_;
    CarriedView view_{tree_, context_, nullptr};
    QAbstractItemModelTester tester_{
        &view_.treeModel(), QAbstractItemModelTester::FailureReportingMode::Fatal};
};

const char* Story::step() {
    const auto items = all();
    if (items.empty() || chance_.oneIn(5)) {
        TreeItem* const parent = items.empty() || chance_.oneIn(4) ? nullptr : chance_.pick(items);
        return tree_.insertRows(parent, chance_.below(4), rows(4)), "insert";
    }
    TreeItem& item = *chance_.pick(items);
    TreeItem* const other = chance_.oneIn(4) ? nullptr : chance_.pick(items);
    switch (chance_.below(12)) {
    case 0:
        return tree_.remove(item), "remove";
    case 1:
    case 2:
        return tree_.move(item, other, chance_.below(4)), "move";
    case 3:
        return tree_.replaceChildren(other, rows(6), firstLetter), "replace";
    case 4:
        return tree_.setFilter(CString(chance_.pick({u"", u"", u"b", u"bc", u"x"}))), "filter";
    case 5:
        return tree_.setLabel(item, label()), "label";
    case 6:
    case 7:
        return tree_.expand(item, !item.expanded()), "expand";
    case 8:
        return tree_.expandAll(other, chance_.oneIn(2)), "expand all";
    case 9:
        return tree_.ensureVisible(item), "reveal";
    case 10:
        tree_.editLabel(item);
        return "edit";
    default:
        return tree_.click(item.shown() ? &item : nullptr, {chance_.oneIn(2), chance_.oneIn(2)}), "click";
    }
}

void Story::check() {
    view_.treeModel().resume();
    for (const TreeItem* at = tree_.shownChild(nullptr, 0); at; at = nextVisible(*at))
        if (at->shownChildCount() > 0)
            EXPECT_EQ(view_.isExpanded(view_.treeModel().indexOf(at)), at->expanded());
    QModelIndex index = view_.treeModel().index(0, 0);
    for (const TreeItem* at = tree_.shownChild(nullptr, 0); at; at = nextVisible(*at)) {
        EXPECT_EQ(TreeModel::item(index), at);
        EXPECT_EQ(view_.selectionModel()->isSelected(index), at->selected());
        index = view_.indexBelow(index);
    }
    EXPECT_FALSE(index.isValid());
    EXPECT_EQ(TreeModel::item(view_.currentIndex()), tree_.focus());
    EXPECT_EQ(view_.findChild<QLineEdit*>("labelEditor") != nullptr, tree_.editedItem() != nullptr);
}

TEST(TreeViewStory, anySequence_isShownAsItIs) {
    for (std::uint64_t seed = 1; seed <= 60; ++seed) {
        Story story(seed);
        for (int i = 0; i < 60; ++i) {
            const char* const what = story.step();
            QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            if (i % 3 == 0)
                QApplication::processEvents();
            story.check();
            ASSERT_FALSE(testing::Test::HasFailure()) << what << ", seed " << seed << ", step " << i;
        }
    }
}

/// Qt is told of each row no longer, and the rows are back before anybody looks.
TEST_F(TreeViewTest, veryManyNotices_atOnce_areOne) {
    const QAbstractItemModelTester tester(&view->treeModel());
    int notices = 0;
    QObject::connect(&view->treeModel(), &QAbstractItemModel::rowsRemoved, [&notices] { ++notices; });
    tree.insertRows(&sub, 0, manyRows(500));
    tree.setSelection({&c});
    settle();
    for (int i = 0; i < 400; ++i)
        tree.remove(*sub.child(0));
    EXPECT_LT(notices, 100);
    settle();
    EXPECT_EQ(view->treeModel().rowCount(indexOf(sub)), 102);
    EXPECT_TRUE(view->isExpanded(indexOf(sub)));
    EXPECT_EQ(TreeModel::item(view->currentIndex()), &c);
    for (int i = 0; i < 100; ++i)
        tree.remove(*sub.child(0));
    ASSERT_TRUE(tree.editLabel(d)); // somebody looks
    EXPECT_EQ(editor()->y(), view->visualRect(indexOf(d)).top());
}

TEST_F(TreeViewTest, depth_beyondWhatIsShown_isLeftOut) {
    const QAbstractItemModelTester tester(&view->treeModel());
    TreeItem* deepest = &other;
    std::vector<TreeItem*> chain{deepest};
    for (int i = 0; i < 30'000; ++i)
        chain.push_back(deepest = &tree.add(deepest, u"deep"));
    tree.expandAll(nullptr, true);
    tree.setSelection({deepest});
    tree.ensureVisible(*deepest);
    settle();
    const auto level = [&chain](int number) { return chain[static_cast<std::size_t>(number)]; };
    EXPECT_TRUE(indexOf(*level(TreeModel::levels - 1)).isValid());
    EXPECT_FALSE(indexOf(*level(TreeModel::levels)).isValid());
    EXPECT_EQ(view->treeModel().rowCount(indexOf(*level(TreeModel::levels - 1))), 0);
    tree.add(deepest, u"deeper");
    tree.move(*level(250), &a, 0); // into reach
    EXPECT_TRUE(indexOf(*level(251)).isValid());
    tree.move(*level(250), level(249), 0);
    EXPECT_FALSE(indexOf(*level(251)).isValid());
    tree.remove(*level(100));
    settle();
}

// -- What is restored

TEST_F(TreeViewTest, firstVisible_isToldToTheControlAndTakenFromIt) {
    tree.insertRows(nullptr, ryv::TreeControl::atEnd, manyRows(300));
    settle();
    EXPECT_EQ(tree.firstVisible(), nullptr);
    const auto atTop = [this] { return TreeModel::item(view->indexAt(QPoint(0, 0))); };
    view->verticalScrollBar()->setValue(1000);
    settle();
    EXPECT_EQ(tree.firstVisible(), atTop());
    const TreeItem* const first = tree.firstVisible();
    tree.insertRows(nullptr, 0, manyRows(50)); // the rows on the screen stay where they are
    settle();
    EXPECT_EQ(atTop(), first);
    EXPECT_EQ(tree.firstVisible(), first);
    tree.setFilter(u"27");
    settle();
    tree.setFilter({});
    settle();
    EXPECT_EQ(atTop(), first);
    TreeItem* const to = tree.child(nullptr, 200);
    tree.setFirstVisible(to);
    settle();
    EXPECT_EQ(atTop(), to);
    EXPECT_EQ(view->visualRect(indexOf(*to)).top(), 0);
    CarriedView second(tree, context, nullptr);
    second.resize(240, 300);
    second.show();
    settle();
    EXPECT_EQ(TreeModel::item(second.indexAt(QPoint(0, 0))), to);
    EXPECT_TRUE(second.isExpanded(second.treeModel().indexOf(&sub)));
}

TEST_F(TreeViewTest, keys_thatLeadOutOfSight_scroll) {
    tree.insertRows(nullptr, ryv::TreeControl::atEnd, manyRows(300));
    settle();
    key(Qt::Key_End);
    EXPECT_TRUE(view->viewport()->rect().contains(view->visualRect(indexOf(*tree.focus()))));
    settle();
    EXPECT_NE(tree.firstVisible(), nullptr);
    const TreeItem* const last = tree.focus();
    key(Qt::Key_PageUp);
    const auto page =
        static_cast<std::size_t>(view->viewport()->height() / view->visualRect(indexOf(a)).height());
    EXPECT_EQ(last->row() - tree.focus()->row(), page);
}

// -- Accessibility

class TreeAccessibilityTest : public TreeViewTest {
protected:
    QAccessible::State stateOf(const TreeItem& item) {
        QAccessibleInterface* const root = QAccessible::queryAccessibleInterface(view.get());
        for (int i = 0; i < root->childCount(); ++i)
            if (root->child(i)->text(QAccessible::Name) == toQt(item.label()))
                return root->child(i)->state();
        ADD_FAILURE() << "no such row";
        return {};
    }
};

TEST_F(TreeAccessibilityTest, rows_tellWhatIsSelectedFocusedAndExpanded) {
    click(a);
    click(d, Qt::ControlModifier);
    EXPECT_TRUE(stateOf(a).selected);
    EXPECT_FALSE(stateOf(a).focused);
    EXPECT_FALSE(stateOf(b).selected);
    EXPECT_TRUE(stateOf(d).selected);
    EXPECT_TRUE(stateOf(d).focused);
    EXPECT_TRUE(stateOf(sub).expandable && stateOf(sub).expanded);
    tree.expand(sub, false);
    settle();
    EXPECT_FALSE(stateOf(sub).expanded);
    EXPECT_TRUE(stateOf(sub).selected); // in place of what it hides
    EXPECT_FALSE(stateOf(b).expandable);
}

TEST_F(TreeAccessibilityTest, manySelectedRows_areToldWhereTheyCanBeSeen) {
    tree.insertRows(nullptr, ryv::TreeControl::atEnd, manyRows(1000));
    settle();
    key(Qt::Key_A, Qt::ControlModifier);
    EXPECT_TRUE(stateOf(a).selected);
    view->verticalScrollBar()->setValue(view->verticalScrollBar()->maximum());
    settle();
    EXPECT_TRUE(stateOf(*tree.child(nullptr, 1001)).selected);
    EXPECT_LT(view->selectionModel()->selection().size(), 100);
    click(*tree.child(nullptr, 1001), Qt::ControlModifier);
    EXPECT_FALSE(stateOf(*tree.child(nullptr, 1001)).selected);
}

// -- Scale

/// Seconds of the processor for what is done with a tree of so many rows with nine rows each.
std::map<std::string, double> timesOf(std::size_t parents) {
    RecordingTree tree;
    tree.insertRows(nullptr, 0, manyRows(parents));
    for (std::size_t i = 0; i < parents; ++i)
        tree.insertRows(tree.child(nullptr, i), 0, manyRows(9));
    ViewContext context;
    CarriedView view(tree, context, nullptr);
    view.resize(240, 400);
    view.show();
    std::map<std::string, double> times;
    const auto time = [&times](const char* what, const std::function<void()>& work) {
        const std::clock_t start = std::clock();
        work();
        QApplication::processEvents();
        times[what] = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
    };
    const auto forEach = [&](const std::function<void(TreeItem & parent)>& work) {
        for (std::size_t i = 0; i < parents; ++i)
            work(*tree.child(nullptr, i));
    };
    time("expand all", [&] { tree.expandAll(nullptr, true); });
    time("select all", [&] { tree.selectAll(); });
    time("filter", [&] { tree.setFilter(u"7"); });
    time("no filter", [&] { tree.setFilter({}); });
    time("select one", [&] { tree.click(tree.child(nullptr, parents / 2)); });
    time("expand", [&] { forEach([&](TreeItem& parent) { tree.expand(parent, !parent.expanded()); }); });
    time("relabel", [&] { forEach([&](TreeItem& parent) { tree.setLabel(parent, u"label"); }); });
    time("move",
        [&] { forEach([&](TreeItem& parent) { tree.move(*parent.child(0), nullptr, tree.atEnd); }); });
    time("remove", [&] { forEach([&](TreeItem& parent) { tree.remove(*parent.child(0)); }); });
    return times;
}

TEST(TreeViewScale, fourTimesTheRows_takeAboutFourTimesAsLong) {
    const auto small = timesOf(2'500);
    const auto large = timesOf(10'000);
    for (const auto& [what, seconds] : large) {
        RecordProperty(what, std::to_string(small.at(what)) + " s, " + std::to_string(seconds) + " s");
        EXPECT_LT(seconds, 8 * small.at(what) + 0.2) << what;
    }
}

} // namespace
} // namespace drafta::test
