#include "base/text.h"
#include "embedded/qt/window/help_window.h"
#include "tests/embedded/qt/question_fixture.h"
#include "tests/embedded/qt/speaking.h"
#include "tests/support/sample_dialog.h"
#include "toolkit/text_field.h"
#include "ui/dialogs/work/report_dialog.h"

#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScreen>
#include <QScrollBar>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTextBrowser>
#include <algorithm>

namespace drafta {
namespace {

using ryv::Dialog;
using ryv::test::SampleDialog;
namespace sample = ryv::test::sample;

class DialogWindowTest : public QuestionFixture {
protected:
    SampleDialog dialog;

    static Step type(const QString& text) {
        return [text](QWidget& window) { QTest::keyClicks(window.focusWidget(), text); };
    }
    static QWidget& named(QWidget& window, const char* name) {
        auto* const found = window.findChild<QWidget*>(QString::fromLatin1(name));
        EXPECT_NE(found, nullptr) << name;
        return *found;
    }
};

TEST_F(DialogWindowTest, enterConfirmsAndEscapeCancels) {
    answerWith({type(QStringLiteral("Pump")), key(Qt::Key_Return)});
    EXPECT_EQ(ui.runModal(dialog), Dialog::idOk);
    EXPECT_EQ(dialog.control<ryv::TextField>(sample::name).text(), u"Pump");
    EXPECT_EQ(dialog.story, u"init change:name change:name change:name change:name ok ");
}

TEST_F(DialogWindowTest, endings_areThoseOfTheModel) {
    struct {
        Step step;
        int result;
        const char16_t* story;
    } const endings[] = {
        {key(Qt::Key_Escape), Dialog::idCancel, u"init cancel "},
        {[](QWidget& window) { window.close(); }, Dialog::idCancel, u"init cancel "},
        {press(QStringLiteral("Cancel")), Dialog::idCancel, u"init cancel "},
        {press(QStringLiteral("OK")), Dialog::idOk, u"init ok "},
        {[this](QWidget&) { dialog.end(77); }, 77, u"init "},
    };
    std::vector<Step> steps;
    for (const auto& ending : endings)
        steps.push_back(ending.step);
    answerWith(steps);
    for (const auto& ending : endings) {
        dialog.story.clear();
        EXPECT_EQ(ui.runModal(dialog), ending.result);
        EXPECT_EQ(dialog.story, ending.story);
    }
    dialog.opens = false;
    EXPECT_EQ(ui.runModal(dialog), Dialog::idCancel) << "it never opened, and nobody was asked";
}

TEST_F(DialogWindowTest, enter_pressesTheButtonThatHasTheKeyboard) {
    answerWith({[](QWidget& window) { named(window, "browse").setFocus(); }, key(Qt::Key_Return),
        [this](QWidget&) { EXPECT_EQ(dialog.focus(), sample::browse) << "the model knows"; },
        key(Qt::Key_Escape)});
    ui.runModal(dialog);
    EXPECT_EQ(dialog.story, u"init press:browse cancel ");
}

TEST_F(DialogWindowTest, refusedConfirmation_movesTheKeyboardToTheField) {
    dialog.confirms = false;
    answerWith({press(QStringLiteral("OK")),
        [](QWidget& window) { EXPECT_EQ(window.focusWidget(), &named(window, "name")); },
        key(Qt::Key_Escape)});
    ui.runModal(dialog);
    EXPECT_EQ(dialog.story, u"init ok cancel ");
}

TEST_F(DialogWindowTest, refusedText_isNotConfirmedUnseen) {
    dialog.control<ryv::TextField>(sample::name).setRule([](ryv::CStringView text) { return text != u"a/"; });
    answerWith({type(QStringLiteral("a/")), key(Qt::Key_Return),
        [](QWidget& window) { named(window, "notes").setFocus(); }, press(QStringLiteral("OK")),
        [](QWidget& window) { EXPECT_EQ(window.focusWidget(), &named(window, "name")); },
        type(QStringLiteral("b")), key(Qt::Key_Return)});
    EXPECT_EQ(ui.runModal(dialog), Dialog::idOk);
    EXPECT_EQ(dialog.control<ryv::TextField>(sample::name).text(), u"b");
}

TEST_F(DialogWindowTest, layout_namesFieldsAndHidesWhatIsHidden) {
    answerWith({[this](QWidget& window) {
        EXPECT_EQ(window.windowTitle(), QStringLiteral("Sample & Co"));
        EXPECT_EQ(window.findChild<QGroupBox*>()->title(), QStringLiteral("More"));
        EXPECT_FALSE(named(window, "code").isVisible());
        dialog.control<ryv::Control>(sample::code).setVisible(true);
        EXPECT_TRUE(named(window, "code").isVisible());
        const auto labels = window.findChildren<QLabel*>();
        EXPECT_TRUE(std::any_of(labels.begin(), labels.end(), [&](const QLabel* label) {
            return label->buddy() == &named(window, "folder") && label->text() == QStringLiteral("F&older:");
        }));
        named(window, "folder").setFocus();
        dialog.setTitle(u"Other");
        EXPECT_EQ(window.windowTitle(), QStringLiteral("Other"));
        EXPECT_EQ(window.focusWidget(), &named(window, "folder")) << "a title moves no keyboard";
        dialog.pressCancel();
    }});
    ui.runModal(dialog);
}

TEST_F(DialogWindowTest, warning_standsBelowItsFieldWhileThereIsOne) {
    auto& field = dialog.control<ryv::TextField>(sample::name);
    const auto shown = [](QWidget& window) {
        const auto labels = window.findChildren<QLabel*>();
        return std::any_of(labels.begin(), labels.end(), [](const QLabel* label) {
            return label->isVisible() && label->text() == QStringLiteral("Name is <taken>");
        });
    };
    answerWith({[&](QWidget& window) {
                    EXPECT_FALSE(shown(window));
                    field.setWarning(u"Name is <taken>");
                    EXPECT_TRUE(shown(window));
                    EXPECT_TRUE(named(window, "name").accessibleDescription().contains(u"taken"));
                    field.setWarning({});
                    EXPECT_FALSE(shown(window));
                },
        key(Qt::Key_Escape)});
    ui.runModal(dialog);
}

TEST_F(DialogWindowTest, size_isKeptWhenSomebodyChangedIt) {
    const Step look = [this](QWidget&) { dialog.end(1); };
    answerWith({look, [](QWidget& window) { window.resize(700, 560); }, look,
        [this](QWidget& window) {
            EXPECT_EQ(window.width(), 700);
            dialog.end(1);
        }});
    ui.runModal(dialog);
    EXPECT_TRUE(!sizes[QStringLiteral("Sample")].isValid());
    ui.runModal(dialog);
    ui.runModal(dialog);
    EXPECT_EQ(sizes[QStringLiteral("Sample")].width(), 700);
}

/// Its OK asks a question of its own first.
class Asking : public SampleDialog {
public:
    explicit Asking(QtUserInterface& ui) : ui_(ui) {}
    ryv::Answer answer = ryv::Answer::retry;

private:
    bool onOk() override {
        answer = ui_.messageBox({7, u"Sure?", u"", {}, ryv::MessageButtons::yesNo});
        return answer == ryv::Answer::yes;
    }
    QtUserInterface& ui_;
};

TEST_F(DialogWindowTest, f1_opensTheTopicOfTheDialog) {
    ryv::CStringArray topics;
    context.showHelp = [&](ryv::CStringView topic) { topics.emplace_back(topic); };
    answerWith({key(Qt::Key_F1), key(Qt::Key_Escape), key(Qt::Key_F1), key(Qt::Key_Escape)});
    for (const ryv::CStringView topic : {u"", u"new_project"}) {
        dialog.setHelpTopic(topic);
        ui.runModal(dialog);
    }
    EXPECT_EQ(topics, (ryv::CStringArray{u"new_project"}));
}

TEST_F(DialogWindowTest, helpOutOfADialog_isReadBesideIt) {
    QTemporaryDir folder;
    const auto write = [&](const char* name, const char* text) {
        QFile file(folder.filePath(QString::fromLatin1(name)));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    };
    write("a.md", "# First page\n\n[more](b.md)\n");
    write("b.md", "# Second page\n");
    context.showHelp = [&](ryv::CStringView) {
        HelpWindow* const help = HelpWindow::showPage(folder.filePath(QStringLiteral("a.md")), nullptr);
        EXPECT_EQ(help->windowTitle(), QStringLiteral("First page - Help"));
        EXPECT_EQ(HelpWindow::showPage(folder.filePath(QStringLiteral("a.md")), nullptr), help);
        help->pages().setSource(QUrl(QStringLiteral("b.md")));
        EXPECT_EQ(help->windowTitle(), QStringLiteral("Second page - Help"));
        help->pages().backward();
        EXPECT_EQ(help->windowTitle(), QStringLiteral("First page - Help"));
        QTest::keyClick(help, Qt::Key_Escape);
        EXPECT_FALSE(help->isVisible());
    };
    dialog.setHelpTopic(u"a");
    answerWith({key(Qt::Key_F1), key(Qt::Key_Escape)});
    EXPECT_EQ(ui.runModal(dialog), Dialog::idCancel);
}

TEST(HelpWindowTest, whatTheFolderOfALanguageLacks_isTheOneAboveIt) {
    QTemporaryDir folder;
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("de")));
    const auto write = [&](const char* name, const char* text) {
        QFile file(folder.filePath(QString::fromLatin1(name)));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    };
    write("a.md", "# First page\n");
    write("b.md", "# Second page\n");
    write("c.svg", "picture");
    write("de/a.md", "# Erste Seite\n\n[mehr](b.md)\n");
    const test::Speaking german(ryv::Language::german);
    HelpWindow* const help = HelpWindow::showPage(folder.filePath(QStringLiteral("de/a.md")), nullptr);
    const auto follow = [help](const char* link) {
        help->pages().setSource(QUrl(QString::fromLatin1(link)));
        return help->windowTitle();
    };
    EXPECT_EQ(help->windowTitle(), QStringLiteral("Erste Seite - Hilfe"));
    EXPECT_EQ(help->pages().loadResource(QTextDocument::ImageResource, QUrl(QStringLiteral("c.svg"))),
        QByteArray("picture"));
    EXPECT_EQ(follow("b.md"), QStringLiteral("Second page - Hilfe"));
    EXPECT_EQ(follow("a.md"), QStringLiteral("Erste Seite - Hilfe"));
    help->close();
}

TEST_F(DialogWindowTest, questionOutOfADialog_nests) {
    Asking asking(ui);
    answerWith(
        {key(Qt::Key_Return), press(QStringLiteral("No")), key(Qt::Key_Return), [this](QWidget& window) {
             EXPECT_EQ(standing, 2);
             EXPECT_TRUE(ui.hasOpenDialog());
             press(QStringLiteral("Yes"))(window);
         }});
    EXPECT_EQ(ui.runModal(asking), Dialog::idOk);
}

TEST_F(DialogWindowTest, leavingTheHost_cancelsTheWholeStack) {
    Asking asking(ui);
    answerWith({key(Qt::Key_Return), [this](QWidget&) {
                    quit_ = true;
                    ui.closeAll();
                }});
    EXPECT_EQ(ui.runModal(asking), Dialog::idCancel);
    EXPECT_EQ(asking.answer, ryv::Answer::no);
    EXPECT_FALSE(asking.isOpen());
    EXPECT_EQ(ui.runModal(asking), Dialog::idCancel) << "and nothing is asked any more";
}

TEST_F(DialogWindowTest, answersFile_fillsInWithoutAWindow) {
    answersFile(u"dialog Sample: name=Pump; ok\n");
    EXPECT_EQ(ui.runModal(dialog), Dialog::idOk);
    EXPECT_EQ(dialog.control<ryv::TextField>(sample::name).text(), u"Pump");
}

TEST_F(DialogWindowTest, faultInAHandler_comesOutOfTheRun) {
    const ryv::Subscription fault =
        dialog.control<ryv::TextField>(sample::name).edited.subscribe([](ryv::Control&) {
            ryv::CArray<int>()[1];
        });
    answerWith({type(QStringLiteral("a"))});
    EXPECT_THROW(ui.runModal(dialog), std::invalid_argument);
    EXPECT_FALSE(dialog.isOpen());
}

TEST_F(DialogWindowTest, sheet_turnsPagesBothWaysAndToTheFocus) {
    static constexpr ryv::ControlLayout fields[] = {{ryv::ControlKind::text, 50, u"far", u"Far"}};
    static constexpr ryv::DialogLayout layout = {u"Sheet", u"Sheet", {}, {}};
    ryv::Panel near({u"", {}});
    ryv::Panel far({u"", fields});
    ryv::PropertySheet sheet(layout);
    sheet.addPage({u"Near", u"near", {&near}});
    sheet.addPage({u"R & D", u"far", {&far}});
    answerWith({[&](QWidget& window) {
        auto& pages = *window.findChild<QTabWidget*>();
        EXPECT_EQ(pages.tabText(1), QStringLiteral("R && D"));
        sheet.setFocus(50);
        EXPECT_EQ(pages.currentIndex(), 1);
        EXPECT_EQ(window.focusWidget(), &named(window, "far"));
        pages.setCurrentIndex(0);
        EXPECT_EQ(sheet.activePage(), 0);
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        QTest::keyClick(&window, Qt::Key_PageDown, Qt::ControlModifier);
        EXPECT_EQ(sheet.activePage(), 1);
        QTest::keyClick(&window, Qt::Key_Tab, Qt::ControlModifier);
        EXPECT_EQ(sheet.activePage(), 0) << "round about";
        sheet.end(5);
    }});
    EXPECT_EQ(ui.runModal(sheet), 5);
}

TEST_F(DialogWindowTest, sheet_beginsInItsFirstField) {
    static constexpr ryv::ControlLayout fields[] = {
        {ryv::ControlKind::button, 50, u"tool", u"Tool"}, {ryv::ControlKind::text, 51, u"first", u"First"}};
    static constexpr ryv::DialogLayout layout = {u"Sheet", u"Sheet", {}, {}};
    ryv::Panel panel({u"", fields});
    ryv::PropertySheet sheet(layout);
    sheet.addPage({u"Page", u"page", {&panel}});
    answerWith({[](QWidget& window) { EXPECT_EQ(window.focusWidget(), &named(window, "first")); },
        key(Qt::Key_Escape)});
    EXPECT_EQ(ui.runModal(sheet), Dialog::idCancel);
}

TEST_F(DialogWindowTest, textThatIsRead_isAsTallAsItIsLongAndScrollsByKeys) {
    const auto textOf = [](QWidget& window) -> QPlainTextEdit& {
        return *window.findChild<QPlainTextEdit*>();
    };
    std::vector<int> heights;
    const auto look = [&](Qt::Key end, bool isLong) {
        return [&, end, isLong](QWidget& window) {
            QPlainTextEdit& report = textOf(window);
            QScrollBar& bar = *report.verticalScrollBar();
            heights.push_back(report.height());
            EXPECT_EQ(window.focusWidget(), &report);
            EXPECT_EQ(bar.maximum() > 0, isLong);
            for (const auto& [pressed, place] : {std::pair(Qt::Key_Down, 1), {Qt::Key_Up, 0},
                     {Qt::Key_End, bar.maximum()}, {Qt::Key_Home, 0}}) {
                QTest::keyClick(&report, pressed);
                EXPECT_EQ(bar.value(), std::min(place, bar.maximum()));
            }
            QTest::keyClick(&report, end);
        };
    };
    answerWith({look(Qt::Key_Return, false), look(Qt::Key_Escape, false), look(Qt::Key_Return, true)});
    for (const std::size_t count : {3u, 12u, 3000u}) {
        ryv::SettingsReportDlg report(u"PUMPS", ryv::CStringArray(count, u"a line of it"));
        ui.runModal(report);
    }
    const int screen = QGuiApplication::primaryScreen()->availableSize().height();
    EXPECT_LT(heights[0], screen / 6);
    EXPECT_LT(heights[0], heights[1]);
    EXPECT_GT(heights[2], screen / 2);
    EXPECT_LE(heights[2], screen * 6 / 10);
}

TEST_F(DialogWindowTest, fieldsOfAllPanels_beginAtOnePlaceAndAreAsWideAsTheyNeed) {
    static constexpr ryv::ControlLayout above[] = {{ryv::ControlKind::text, 50, u"path", u"Path"}};
    static constexpr ryv::ControlLayout below[] = {{ryv::ControlKind::text, 51, u"number", u"A longer name"}};
    static constexpr ryv::PanelLayout panels[] = {{u"", above}, {u"Framed", below}};
    static constexpr ryv::DialogLayout layout = {u"Fields", u"Fields", panels, {}};
    Dialog fields(layout);
    fields.control<ryv::TextField>(50).setText(ryv::CString(300, u'x'));
    fields.control<ryv::TextField>(51).setBrief(true);
    answerWith({[](QWidget& window) {
        auto& path = dynamic_cast<QLineEdit&>(named(window, "path"));
        QWidget& number = named(window, "number");
        EXPECT_EQ(path.mapToGlobal(QPoint()).x(), number.mapToGlobal(QPoint()).x());
        EXPECT_LT(number.width(), path.width() / 2);
        EXPECT_EQ(path.cursorPosition(), 0) << "its beginning shows";
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        number.setFocus();
        path.setFocus(Qt::TabFocusReason);
        EXPECT_EQ(path.selectedText(), path.text()) << "it is to be typed anew";
        EXPECT_EQ(path.cursorPosition(), 0) << "and still does";
        window.close();
    }});
    ui.runModal(fields);
}

TEST_F(DialogWindowTest, higherThanTheScreen_scrollsAboveItsButtons) {
    constexpr int rows = 60;
    std::vector<ryv::CString> names;
    for (int i = 0; i < rows; ++i)
        names.push_back(u"field" + ryv::toText(i));
    std::vector<ryv::ControlLayout> fields;
    for (int i = 0; i < rows; ++i) {
        const auto& name = names[static_cast<std::size_t>(i)];
        fields.push_back({ryv::ControlKind::text, 100 + i, name.c_str(), name.c_str()});
    }
    static constexpr ryv::DialogLayout layout = {u"High", u"High", {}, {}};
    ryv::Panel panel({u"", fields});
    Dialog high(layout);
    high.addPanel(panel);
    const auto isSeen = [](const QWidget& widget) { return !widget.visibleRegion().isEmpty(); };
    answerWith({[&](QWidget& window) {
        EXPECT_LE(window.height(), window.screen()->availableSize().height());
        for (const QPushButton* const button : window.findChildren<QPushButton*>())
            EXPECT_EQ(button->visibleRegion().boundingRect(), button->rect());
        EXPECT_TRUE(isSeen(named(window, "field0")));
        EXPECT_FALSE(isSeen(named(window, "field59")));
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        high.setFocus(100 + rows - 1);
        EXPECT_TRUE(isSeen(named(window, "field59")));
        window.close();
    }});
    ui.runModal(high);
}

} // namespace
} // namespace drafta
