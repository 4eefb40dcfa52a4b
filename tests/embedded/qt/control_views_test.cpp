#include "embedded/qt/controls/control_views.h"

#include "embedded/qt/qt_text.h"
#include "toolkit/control_value.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTableView>
#include <QTest>
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

TEST_F(ControlViewsTest, grid_showsMarksAndIsChosenFrom) {
    ryv::Grid grid(7);
    grid.setColumns({u"Setting", u"Value"});
    QTableView& view = part<QTableView>(viewOf(grid));
    for (const char16_t* const name : {u"a", u"b"})
        grid.addRow({name, u"1"});
    grid.setMarked(1, true);
    EXPECT_TRUE(view.model()->index(1, 0).data(Qt::FontRole).value<QFont>().bold());
    clickRow(view, 1);
    EXPECT_EQ(grid.chosen(), std::optional<std::size_t>(1));
    grid.setChosen(0);
    EXPECT_EQ(view.selectionModel()->selectedRows().front().row(), 0);
    grid.setChosen(std::nullopt);
    EXPECT_FALSE(view.selectionModel()->hasSelection());
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
