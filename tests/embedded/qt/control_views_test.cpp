#include "embedded/qt/controls/control_views.h"

#include "base/text.h"
#include "embedded/qt/controls/row_search.h"
#include "embedded/qt/look/theme.h"
#include "embedded/qt/qt_text.h"
#include "toolkit/control_value.h"
#include "toolkit/images.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTableView>
#include <QTest>
#include <QVBoxLayout>
#include <gtest/gtest.h>

namespace drafta {
namespace {

using ryv::Control;
using ryv::CString;

/// A control as the program changes it and as the user does.
struct Case {
    const char* name;
    std::function<std::unique_ptr<Control>()> make;
    std::function<void(Control&)> program;
    std::function<QString(QWidget&)> shown;
    const char* expected; ///< that the widget shows after `program`
    std::function<void(QWidget&)> gesture;
    const char16_t* value; ///< of the control after `gesture`
};

const ryv::Choices choices = {{u"One", u"1"}, {u"A & B", u"2"}, {u"Three", u"3"}};

template <class C, class... Args>
std::function<std::unique_ptr<Control>()> maker(Args... args) {
    return [=] { return std::make_unique<C>(7, args...); };
}
template <class C>
std::function<std::unique_ptr<Control>()> withRows(bool option) {
    return [=] {
        auto control = std::make_unique<C>(7, option);
        control->setRows(choices);
        return control;
    };
}
std::unique_ptr<Control> manyLines() {
    auto field = std::make_unique<ryv::TextField>(7);
    field->setMultiLine(true);
    return field;
}
std::unique_ptr<Control> radio() {
    auto group = std::make_unique<ryv::RadioGroup>(7);
    group->setChoices(choices);
    return group;
}

template <class W>
W& part(QWidget& view) {
    W* const found = qobject_cast<W*>(&view) ? qobject_cast<W*>(&view) : view.findChild<W*>();
    EXPECT_NE(found, nullptr);
    return *found;
}
void clickRow(QAbstractItemView& view, int row) {
    QTest::mouseClick(
        view.viewport(), Qt::LeftButton, {}, view.visualRect(view.model()->index(row, 0)).center());
}
QString checkedRadio(QWidget& view) {
    for (const QRadioButton* const button : view.findChildren<QRadioButton*>())
        if (button->isChecked() && !button->isHidden())
            return button->text();
    return {};
}

const std::vector<Case> valueCases = {
    {"line", maker<ryv::TextField>(), [](Control& c) { setValue(c, u"Pump"); },
        [](QWidget& w) { return part<QLineEdit>(w).text(); }, "Pump",
        [](QWidget& w) { QTest::keyClicks(&w, "s"); }, u"Pumps"},
    {"lines", manyLines, [](Control& c) { setValue(c, u"a\nb"); },
        [](QWidget& w) { return part<QPlainTextEdit>(w).toPlainText(); }, "a\nb",
        [](QWidget& w) { QTest::keyClick(&w, Qt::Key_Return); }, u"\na\nb"},
    {"check", maker<ryv::CheckBox>(), [](Control& c) { setValue(c, u"1"); },
        [](QWidget& w) { return QString::number(part<QCheckBox>(w).isChecked()); }, "1",
        [](QWidget& w) { QTest::keyClick(&w, Qt::Key_Space); }, u"0"},
    {"radio", radio, [](Control& c) { setValue(c, u"2"); }, checkedRadio, "A && B",
        [](QWidget& w) { QTest::keyClick(w.focusProxy(), Qt::Key_Down); }, u"3"},
    {"combo", withRows<ryv::ComboBox>(false), [](Control& c) { setValue(c, u"2"); },
        [](QWidget& w) { return part<QComboBox>(w).currentText(); }, "A & B",
        [](QWidget& w) { QTest::keyClick(&w, Qt::Key_Down); }, u"3"},
    {"editable", withRows<ryv::ComboBox>(true), [](Control& c) { setValue(c, u"own"); },
        [](QWidget& w) { return part<QComboBox>(w).currentText(); }, "own",
        [](QWidget& w) { QTest::keyClicks(&w, "er"); }, u"owner"},
    {"list", withRows<ryv::ListBox>(false), [](Control& c) { setValue(c, u"2"); },
        [](QWidget& w) { return part<QListView>(w).currentIndex().data().toString(); }, "A & B",
        [](QWidget& w) { clickRow(part<QListView>(w), 2); }, u"3"},
};

class ControlViewsTest : public ::testing::Test {
protected:
    ViewContext context;
    QWidget window;

    QWidget& viewOf(Control& control) {
        QWidget* const view = makeControlView(control, context, &window);
        view->resize(300, 200);
        window.show();
        view->show();
        window.activateWindow();
        view->setFocus();
        QApplication::processEvents(); // places its parts
        return *view;
    }
};

TEST_F(ControlViewsTest, valueControls_goBothWays) {
    for (const Case& one : valueCases) {
        SCOPED_TRACE(one.name);
        const std::unique_ptr<Control> control = one.make();
        control->setLabel(u"&Name:");
        control->setTooltip(u"<b>what & why");
        int edits = 0;
        const ryv::Subscription edited = control->edited.subscribe([&](Control&) { ++edits; });
        QWidget& view = viewOf(*control);
        EXPECT_EQ(view.accessibleName(), QStringLiteral("Name"));
        EXPECT_EQ(view.accessibleDescription(), QStringLiteral("<b>what & why"));

        one.program(*control);
        EXPECT_EQ(one.shown(view), QString::fromUtf8(one.expected));
        EXPECT_EQ(edits, 0) << "what the program sets is no gesture";
        one.gesture(view);
        EXPECT_EQ(toQt(valueOf(*control).value_or(u"(none)")), toQt(one.value));
        EXPECT_EQ(edits, 1 + (std::string(one.name) == "editable")) << "two letters";

        control->setEnabled(false);
        EXPECT_FALSE(view.isEnabled());
        control->setVisible(false);
        EXPECT_TRUE(view.isHidden());
        control->setVisible(true);
        EXPECT_TRUE(view.isVisible());
        delete &view;
    }
}

TEST_F(ControlViewsTest, modelThatChangesUnderAGesture_isShown) {
    for (const Case& one : valueCases) {
        SCOPED_TRACE(one.name);
        const std::unique_ptr<Control> control = one.make();
        QWidget& view = viewOf(*control);
        one.program(*control);
        const ryv::Subscription edited = control->edited.subscribe([](Control& changed) {
            if (auto* const combo = dynamic_cast<ryv::ComboBox*>(&changed))
                combo->setRows({{u"Other"}});
            else if (auto* const list = dynamic_cast<ryv::ListBox*>(&changed))
                list->setRows({});
            else if (auto* const group = dynamic_cast<ryv::RadioGroup*>(&changed))
                group->setChoices({{u"Other"}});
            else
                setValue(changed, u"1");
        });
        one.gesture(view);
        const QString after = one.shown(view);
        const bool isText = control->kind() == ryv::ControlKind::text;
        const bool isEditable = std::string(one.name) == "editable";
        EXPECT_EQ(after, isText || control->kind() == ryv::ControlKind::checkBox ? QStringLiteral("1")
                         : isEditable                                            ? QStringLiteral("owner")
                                                                                 : QString());
        delete &view;
    }
}

TEST_F(ControlViewsTest, gestureThatIsPutOff_missesAViewThatIsGone) {
    std::vector<std::function<void()>> waiting;
    context.perform = [&](const std::function<void()>& work) { waiting.push_back(work); };
    ryv::Button button(7);
    button.setLabel(u"Go");
    int presses = 0;
    const ryv::Subscription pressed = button.pressed.subscribe([&](ryv::Button&) { ++presses; });
    QWidget& view = viewOf(button);
    QTest::mouseClick(&view, Qt::LeftButton);
    QTest::mouseClick(&view, Qt::LeftButton);
    ASSERT_EQ(waiting.size(), 2u);
    waiting[0]();
    EXPECT_EQ(presses, 1);
    delete &view;
    waiting[1]();
    EXPECT_EQ(presses, 1);
}

TEST_F(ControlViewsTest, refusedText_staysMarkedAndTheModelKeepsTheLastGoodOne) {
    ryv::TextField field(7);
    field.setRule([](ryv::CStringView text) { return text.empty() || text.back() != u'x'; });
    QWidget& view = viewOf(field);
    QTest::keyClicks(&view, "ax");
    EXPECT_EQ(field.text(), u"a");
    EXPECT_TRUE(isRefused(view));
    EXPECT_EQ(part<QLineEdit>(view).text(), QStringLiteral("ax"));
    field.setEnabled(true); // nothing changes
    field.setTooltip(u"news that are not about the text");
    EXPECT_EQ(part<QLineEdit>(view).text(), QStringLiteral("ax"));
    QTest::keyClicks(&view, "b");
    EXPECT_EQ(field.text(), u"axb");
    EXPECT_FALSE(isRefused(view));
}

TEST_F(ControlViewsTest, typingInTheMiddle_staysThere) {
    ryv::TextField field(7);
    field.setMaxLength(8);
    field.setText(u"abcd");
    ryv::ComboBox box(8, true);
    box.setMaxLength(8);
    box.setText(u"abcd");
    for (Control* const control : {static_cast<Control*>(&field), static_cast<Control*>(&box)}) {
        QWidget& view = viewOf(*control);
        part<QLineEdit>(view).setCursorPosition(1);
        QTest::keyClicks(&view, "xy");
        EXPECT_EQ(valueOf(*control), u"axybcd");
        delete &view;
    }
}

TEST_F(ControlViewsTest, maxLength_bindsTheUserAndNotTheProgram) {
    ryv::TextField field(7);
    field.setMaxLength(3);
    QWidget& view = viewOf(field);
    field.setText(u"longer");
    EXPECT_EQ(part<QLineEdit>(view).text(), QStringLiteral("longer"));
    EXPECT_EQ(field.text(), u"longer");
    field.setText(u"ab");
    QTest::keyClicks(&view, "cd");
    EXPECT_EQ(field.text(), u"abc");
}

TEST_F(ControlViewsTest, listOfMany_choosesActivatesAndFollowsItsRows) {
    ryv::ListBox list(7, true);
    list.setRows({{u"a"}, {u"b"}, ryv::separatorChoice(), {u"c"}});
    QListView& view = part<QListView>(viewOf(list));
    list.setChosen({0, 3});
    EXPECT_EQ(view.selectionModel()->selectedRows().size(), 2);
    list.insert(0, {u"new"});
    EXPECT_TRUE(view.selectionModel()->isRowSelected(1, {}) && view.selectionModel()->isRowSelected(4, {}));
    QTest::keyClick(&view, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(list.chosen(), (std::vector<std::size_t>{0, 1, 2, 4})) << "a line between rows is none";
    std::size_t activated = 99;
    const ryv::Subscription told = list.activated.subscribe([&](std::size_t row) { activated = row; });
    clickRow(view, 1);
    QTest::mouseDClick(
        view.viewport(), Qt::LeftButton, {}, view.visualRect(view.model()->index(1, 0)).center());
    EXPECT_EQ(activated, 1u);
    delete &view;
    EXPECT_EQ(list.chosen(), (std::vector<std::size_t>{1})) << "the end of a view is no gesture";
}

TEST_F(ControlViewsTest, longList_isSearched) {
    ryv::ListBox list(7, true);
    auto* const rows = new QVBoxLayout(&window);
    QWidget& made = viewOf(list);
    auto* const search = qobject_cast<QLineEdit*>(makeRowSearch(list, made, &window));
    ASSERT_NE(search, nullptr);
    rows->addWidget(search);
    rows->addWidget(&made);
    EXPECT_FALSE(search->isVisible());
    ryv::Choices many;
    for (int row = 0; row < 20; ++row)
        many.push_back({u"row " + ryv::toText(row)});
    list.setRows(many);
    EXPECT_TRUE(search->isVisible());
    list.setChosen({3});
    auto& view = part<QListView>(made);
    QTest::keyClicks(search, "row 1");
    EXPECT_TRUE(view.isRowHidden(3) && view.isRowHidden(9) && !view.isRowHidden(12));
    const QPoint found = view.visualRect(view.model()->index(12, 0)).center();
    QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::ControlModifier, found);
    EXPECT_EQ(list.chosen(), (std::vector<std::size_t>{3, 12})) << "what is hidden stays chosen beside it";
    QTest::keyClick(&view, Qt::Key_A, Qt::ControlModifier);
    const std::vector<std::size_t> chosen = list.chosen();
    EXPECT_EQ(chosen, (std::vector<std::size_t>{1, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19}))
        << "nothing unseen";
    QTest::keyClick(search, Qt::Key_Escape);
    EXPECT_EQ(search->text(), QString());
    EXPECT_EQ(list.chosen(), chosen);
    list.setRows({{u"a"}});
    EXPECT_FALSE(search->isVisible());
}

TEST_F(ControlViewsTest, editableCombo_isSpokenOfByItsLabelAndNotByItsText) {
    ryv::ComboBox box(7, true);
    box.setLabel(u"&Section:");
    box.setTooltip(u"of the project");
    box.setText(u"PUMPS");
    QWidget& view = viewOf(box);
    const auto spoken = [&view](QAccessible::Text kind) {
        const QAccessibleInterface* const focused =
            QAccessible::queryAccessibleInterface(&view)->focusChild();
        return focused ? focused->text(kind) : QStringLiteral("(none)");
    };
    EXPECT_EQ(spoken(QAccessible::Name), "Section");
    EXPECT_EQ(spoken(QAccessible::Value), "PUMPS");
    EXPECT_EQ(spoken(QAccessible::Description), "of the project");
    box.setLabel(u"Location");
    box.setWarning(u"unknown");
    EXPECT_EQ(spoken(QAccessible::Name), "Location");
    EXPECT_TRUE(spoken(QAccessible::Description).startsWith(u"unknown"));
}

TEST_F(ControlViewsTest, comboOfCommands_opensBeforeItChooses) {
    ryv::ComboBox box(7);
    ryv::Choice active{u"Active"};
    active.image = ryv::images::locked;
    active.marked = true;
    box.setRows({active, ryv::separatorChoice(), {u"Command"}});
    box.setChosen(0);
    box.setMenu(true);
    auto& view = part<QComboBox>(viewOf(box));
    EXPECT_FALSE(view.itemIcon(0).isNull());
    EXPECT_TRUE(view.itemIcon(2).isNull());
    EXPECT_TRUE(view.itemData(0, Qt::FontRole).value<QFont>().bold());
    const ryv::Subscription back = box.edited.subscribe([&](Control&) { box.setChosen(0); });
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_C, Qt::Key_End}) {
        QTest::keyClick(&view, key);
        EXPECT_TRUE(view.view()->isVisible());
        EXPECT_EQ(view.currentIndex(), 0);
        view.hidePopup();
    }
    emit view.activated(2);
    EXPECT_EQ(view.currentIndex(), 0) << "a command is no choice";
}

TEST_F(ControlViewsTest, grid_showsMarksAndIsChosenFrom) {
    ryv::Grid grid(7);
    grid.setColumns({u"Setting", u"Value"});
    grid.setPlaceholder(u"There is nothing.");
    QTableView& view = part<QTableView>(viewOf(grid));
    const auto* const empty = view.viewport()->findChild<QLabel*>();
    EXPECT_TRUE(empty->isVisible() && empty->text() == QLatin1String("There is nothing."));
    for (const char16_t* const name : {u"a setting with a long name", u"b"})
        grid.addRow({name, u"1"});
    EXPECT_FALSE(empty->isVisible());
    grid.setMarked(1, true);
    const QModelIndex marked = view.model()->index(1, 0);
    EXPECT_TRUE(marked.data(Qt::FontRole).value<QFont>().bold());
    EXPECT_EQ(marked.data(Qt::BackgroundRole).value<QColor>(), currentTheme().markedBase);
    clickRow(view, 1);
    EXPECT_EQ(grid.chosen(), std::optional<std::size_t>(1));
    grid.setChosen(0);
    EXPECT_EQ(view.selectionModel()->selectedRows().front().row(), 0);
    grid.setChosen(std::nullopt);
    EXPECT_FALSE(view.selectionModel()->hasSelection());
}

TEST_F(ControlViewsTest, gridThatIsSearched_keepsItsColumns) {
    ryv::Grid grid(7);
    grid.setColumns({u"Setting", u"Value"});
    QTableView& view = part<QTableView>(viewOf(grid));
    const int narrow = view.columnWidth(0);
    grid.addRow({u"a setting with a long name", u"1"});
    const int wide = view.columnWidth(0);
    EXPECT_GT(wide, narrow);
    grid.clear();
    EXPECT_EQ(view.columnWidth(0), wide);
    view.setColumnWidth(0, narrow + 1); // somebody drags it
    grid.addRow({u"a setting with a long name", u"1"});
    EXPECT_EQ(view.columnWidth(0), narrow + 1);
    grid.setColumns({u"Other"});
    grid.addRow({u"b"});
    EXPECT_EQ(view.horizontalHeader()->count(), 1);
}

TEST_F(ControlViewsTest, group_turnsPagesAndIsMinimized) {
    ryv::Label first(1);
    ryv::Label second(2);
    ryv::GroupControl group(7);
    group.addPage(u"Details", first);
    QWidget& view = viewOf(group);
    group.addPage(u"Pre & view", second);
    QTabBar& captions = part<QTabBar>(view);
    EXPECT_EQ(captions.tabText(1), QStringLiteral("Pre && view"));
    QTest::mouseClick(&captions, Qt::LeftButton, {}, captions.tabRect(1).center());
    EXPECT_EQ(group.selectedPage(), 1);
    group.setMinimized(true);
    EXPECT_LT(view.maximumHeight(), 100);
    QTest::mouseClick(&captions, Qt::LeftButton, {}, captions.tabRect(1).center());
    EXPECT_FALSE(group.isMinimized()) << "the selected caption, too";
    QTest::keyClick(&captions, Qt::Key_Left);
    EXPECT_EQ(group.selectedPage(), 0);
}

TEST_F(ControlViewsTest, texts_areNeverMarkup) {
    ryv::Label label(7);
    label.setLabel(u"<h1>&Big</h1>");
    EXPECT_EQ(part<QLabel>(viewOf(label)).textFormat(), Qt::PlainText);
    ryv::Button button(8);
    button.setTooltip(u"<h1>");
    EXPECT_TRUE(viewOf(button).toolTip().contains(QStringLiteral("&lt;h1&gt;")));
}

} // namespace
} // namespace drafta
