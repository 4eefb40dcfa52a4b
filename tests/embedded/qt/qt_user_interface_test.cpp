#include "embedded/qt/dialogs/file_chooser.h"
#include "embedded/qt/dialogs/menu_popup.h"
#include "embedded/qt/qt_wait_cursor.h"
#include "embedded/services/wait_cursor.h"
#include "tests/embedded/qt/question_fixture.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QCommandLinkButton>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QScreen>
#include <QSettings>
#include <QTemporaryDir>

namespace drafta {
namespace {

using ryv::Answer;
using ryv::MessageButtons;

class QtUserInterfaceTest : public QuestionFixture {
protected:
    static Step steps(std::vector<Step> parts) {
        return [parts](QWidget& window) {
            for (const Step& part : parts)
                part(window);
        };
    }
};

TEST_F(QtUserInterfaceTest, messageBox_isAnsweredByKeysAndButtons) {
    struct {
        MessageButtons buttons;
        Step step;
        Answer answer;
    } const cases[] = {
        {MessageButtons::ok, key(Qt::Key_Escape), Answer::ok},
        {MessageButtons::ok, key(Qt::Key_Return), Answer::ok},
        {MessageButtons::okCancel, key(Qt::Key_Escape), Answer::cancel},
        {MessageButtons::okCancel, [](QWidget& window) { window.close(); }, Answer::cancel},
        {MessageButtons::yesNo, key(Qt::Key_Escape), Answer::no},
        {MessageButtons::yesNo, key(Qt::Key_Return), Answer::yes},
        {MessageButtons::yesNo, press(QStringLiteral("No")), Answer::no},
        {MessageButtons::yesNoCancel, press(QStringLiteral("Cancel")), Answer::cancel},
        {MessageButtons::yesNoCancel, press(QStringLiteral("No")), Answer::no},
        {MessageButtons::retryCancel, press(QStringLiteral("Retry")), Answer::retry},
    };
    std::vector<Step> presses;
    for (const auto& one : cases)
        presses.push_back(one.step);
    answerWith(presses);
    for (const auto& one : cases)
        EXPECT_EQ(ui.messageBox({7, u"<b>?", u"", ryv::MessageIcon::warning, one.buttons}), one.answer)
            << &one - cases;
}

TEST_F(QtUserInterfaceTest, taskDialog_hasLinksADefaultAndACancel) {
    const ryv::TaskDialogRequest request{u"A.B", u"Title", u"What?", ryv::CString(20'000, u'x'),
        {{1001, u"Keep & go"}, {1002, u"Drop"}, {2, u"Cancel"}}, 1002, {}};
    answerWith(
        {key(Qt::Key_Return), press(QStringLiteral("Keep  go")), key(Qt::Key_Escape), [](QWidget& window) {
             EXPECT_EQ(window.findChildren<QCommandLinkButton*>().size(), 2);
             EXPECT_LE(window.height(), window.screen()->availableSize().height());
             press(QStringLiteral("Cancel"))(window);
         }});
    for (const int answer : {1002, 1001, 2, 2})
        EXPECT_EQ(ui.taskDialog(request), answer);
}

TEST_F(QtUserInterfaceTest, form_takesAllKindsAndLeavesThemWhenCancelled) {
    using Kind = ryv::FormField::Kind;
    ryv::CStringArray many;
    for (char16_t c = u'A'; c <= u'Z'; ++c)
        many.emplace_back(2, c);
    ryv::FormRequest form{u"f", u"Title",
        {{Kind::text, u"name", u"Name", {}, {u"old"}}, {Kind::choice, u"kind", u"", {u"a", u"b"}, {u"a"}},
            {Kind::choice, u"far", u"Far", many, {}},
            {Kind::list, u"order", u"Order", many, {u"CC", u"none"}},
            {Kind::check, u"on", u"On", {}, {u"1"}}},
        u"Go & see", u""};
    const ryv::CStringArray before = form.fields[3].values;
    const Step fill = [](QWidget& window) {
        const auto lines = window.findChildren<QLineEdit*>();
        lines.front()->setText(QStringLiteral("new"));
        window.findChild<QComboBox*>()->setCurrentIndex(1);
        window.findChild<QCheckBox*>()->setChecked(false);
        const auto lists = window.findChildren<QListWidget*>();
        lists[0]->setCurrentRow(25);
        lists[1]->item(9)->setCheckState(Qt::Checked);
        lines.back()->setText(QStringLiteral("b")); // searches
        EXPECT_TRUE(lists[1]->isRowHidden(0));
        press(QStringLiteral("All"))(window);
        lists[1]->item(2)->setCheckState(Qt::Unchecked);
        lists[1]->item(2)->setCheckState(Qt::Checked);
    };
    answerWith({steps({fill, key(Qt::Key_Escape)}), steps({fill, press(QStringLiteral("Go  see"))})});
    EXPECT_FALSE(ui.fillForm(form));
    EXPECT_EQ(form.fields[0].values, (ryv::CStringArray{u"old"}));
    EXPECT_EQ(form.fields[3].values, before);
    EXPECT_TRUE(ui.fillForm(form));
    EXPECT_EQ(form.fields[0].values, (ryv::CStringArray{u"new"}));
    EXPECT_EQ(form.fields[1].values, (ryv::CStringArray{u"b"}));
    EXPECT_EQ(form.fields[2].values, (ryv::CStringArray{u"ZZ"}));
    EXPECT_EQ(form.fields[3].values, (ryv::CStringArray{u"JJ", u"BB", u"CC"})) << "in the order of choosing";
    EXPECT_EQ(form.fields[4].values, (ryv::CStringArray{u"0"}));
}

class FilesTest : public QtUserInterfaceTest {
protected:
    FilesTest() { // the window keeps where it was
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder.path());
        for (const char* const name : {"a.kqp", "b.kqp"})
            QFile(folder.filePath(QString::fromLatin1(name))).open(QIODevice::WriteOnly);
    }
    QTemporaryDir folder;

    ryv::FileRequest request(bool save, bool many = false) const {
        return {3, u"Where?", module(QString()), u"", u".kqp", save, many};
    }
    ryv::CString module(const QString& name) const {
        const QString path = name.isEmpty() ? folder.path() : folder.filePath(name);
        return fromQt(QString(path).replace(u'/', u'\\'));
    }
    static Step name(const QString& text) {
        return [text](QWidget& window) {
            auto* const line = window.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
            line->setText(text);
            QTest::keyClick(line, Qt::Key_Return);
        };
    }
};

TEST_F(FilesTest, filesToOpen_areThere) {
    answerWith({name(QStringLiteral("a.kqp")), name(QStringLiteral("\"a.kqp\" \"b.kqp\"")),
        key(Qt::Key_Escape), name(QStringLiteral("none.kqp")), key(Qt::Key_Escape), key(Qt::Key_Escape)});
    EXPECT_EQ(ui.chooseFiles(request(false)), (std::vector{module(QStringLiteral("a.kqp"))}));
    EXPECT_EQ(ui.chooseFiles(request(false, true)).size(), 2u);
    EXPECT_TRUE(ui.chooseFiles(request(false)).empty());
    EXPECT_TRUE(ui.chooseFiles(request(false)).empty()) << "not there, told and then cancelled";
}

TEST_F(FilesTest, folder_isOneThatIsThere) {
    QDir(folder.path()).mkdir(QStringLiteral("sub"));
    ryv::FileRequest wanted = request(false);
    wanted.choosesFolder = true;
    answerWith({name(QStringLiteral("sub")), name(QStringLiteral("a.kqp")), key(Qt::Key_Escape)});
    EXPECT_EQ(ui.chooseFiles(wanted), (std::vector{module(QStringLiteral("sub"))}));
    EXPECT_TRUE(ui.chooseFiles(wanted).empty()) << "a file is not taken, so it stays until it is cancelled";
}

TEST_F(FilesTest, newFile_getsItsExtensionAndReplacesNothingUnasked) {
    answerWith({name(QStringLiteral("new.1")), name(QStringLiteral("a")), press(QStringLiteral("No")),
        name(QStringLiteral("B.KQP")), name(QStringLiteral("a.kqp")), press(QStringLiteral("Yes"))});
    EXPECT_EQ(ui.chooseFiles(request(true)), (std::vector{module(QStringLiteral("new.1.kqp"))}));
    EXPECT_EQ(ui.chooseFiles(request(true)), (std::vector{module(QStringLiteral("B.KQP"))}));
    EXPECT_EQ(ui.chooseFiles(request(true)), (std::vector{module(QStringLiteral("a.kqp"))}));
}

TEST_F(FilesTest, answeredFile_stillAsksBeforeReplacing) {
    const ryv::CString path = module(QStringLiteral("a.kqp"));
    answersFile(u"file 3: " + path + u"\n");
    answerWith({press(QStringLiteral("No")), press(QStringLiteral("Yes"))});
    EXPECT_TRUE(ui.chooseFiles(request(true)).empty());
    EXPECT_EQ(ui.chooseFiles(request(true)), std::vector{path});
}

TEST_F(QtUserInterfaceTest, menu_givesTheCommand) {
    ryv::Menu menu(u"project");
    menu.add(217, u"&Properties");
    menu.add(218, u"Off").enabled = false;
    menu.addSeparator();
    menu.addSubmenu(u"P&ublish").add(238, u"Plot");
    menu.setDefaultItem(217);
    answerWith({[](QWidget& popup) {
                    const auto& shown = dynamic_cast<QMenu&>(popup);
                    EXPECT_EQ(commandOf(shown.defaultAction()), 217);
                    EXPECT_FALSE(shown.actions()[1]->isEnabled());
                    EXPECT_TRUE(shown.actions()[2]->isSeparator());
                    QTest::keyClick(&popup, Qt::Key_P);
                },
        steps({key(Qt::Key_U),
            [](QWidget&) { QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Return); }}),
        key(Qt::Key_Escape)});
    EXPECT_EQ(ui.popupMenu(menu, {5, 5}), 217);
    EXPECT_EQ(ui.popupMenu(menu, {5, 5}), 238);
    EXPECT_EQ(ui.popupMenu(menu, {5, 5}), 0);
}

TEST_F(QtUserInterfaceTest, menuAtControl_opensBelowItOrAbove) {
    ryv::Menu menu;
    menu.add(1, u"One");
    QWidget window;
    window.resize(200, 100);
    auto* const button = new QPushButton(QStringLiteral("Menu"), &window);
    button->move(40, 30);
    auto* const box = new QComboBox(&window);
    box->addItems({QStringLiteral("a"), QStringLiteral("b")});
    box->move(40, 70);
    window.show();
    int asked = 0;
    const auto ask = [&] {
        ++asked;
        EXPECT_EQ(ui.popupMenu(menu, ryv::ScreenPoint::atControl()), 0);
    };
    QObject::connect(button, &QPushButton::clicked, ask);
    QObject::connect(box, &QComboBox::activated, ask);
    const auto isBelow = [](const QWidget& control) {
        return [&control](QWidget& popup) {
            EXPECT_EQ(popup.pos(), control.mapToGlobal(QPoint(0, control.height())));
            popup.close();
        };
    };
    answerWith({isBelow(*button), isBelow(*box), [&](QWidget& popup) {
                    EXPECT_EQ(popup.geometry().bottom() + 1, button->mapToGlobal(QPoint()).y());
                    popup.close();
                }});
    QTest::mouseClick(button, Qt::LeftButton);
    box->showPopup();
    QTest::keyClick(box->view(), Qt::Key_Down);
    QTest::keyClick(box->view(), Qt::Key_Return);
    window.move(0, window.screen()->availableGeometry().bottom() - 60);
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_EQ(asked, 3);
}

TEST_F(QtUserInterfaceTest, progress_appearsLateAndIsCancelledAtOnce) {
    const auto window = [] { return QApplication::activeModalWidget(); };
    const auto progress = ui.beginProgress(128, 1500);
    clock = 499;
    EXPECT_TRUE(progress->step(1, u"a.dwg"));
    EXPECT_EQ(window(), nullptr);
    clock = 500;
    EXPECT_TRUE(progress->step(750, u"b.dwg"));
    ASSERT_NE(window(), nullptr);
    EXPECT_EQ(window()->findChild<QProgressBar*>()->value(), 50);
    QStringList texts;
    for (const QLabel* const label : window()->findChildren<QLabel*>())
        texts += label->text();
    EXPECT_EQ(texts.join(u';').toStdString(), "b.dwg;750 of 1,500");
    QTimer::singleShot(0, window(), [&] { press(QStringLiteral("Cancel"))(*window()); });
    clock = 549;
    EXPECT_TRUE(progress->step(751, u"c.dwg")) << "nobody has looked yet";
    clock = 550;
    EXPECT_FALSE(progress->step(752, u"d.dwg"));
}

TEST_F(QtUserInterfaceTest, progress_endsWhenTheHostIsLeft) {
    const auto progress = ui.beginProgress(128, 0);
    quit_ = true;
    EXPECT_FALSE(progress->step(1, u""));
}

TEST_F(QtUserInterfaceTest, answersFile_answersWithoutAWindow) {
    answersFile(u"message 7: no\ntask A.b: 1001\nform f: name=new\nmenu m: 5\n");
    EXPECT_EQ(ui.messageBox({7, u"?", u"", {}, MessageButtons::yesNo}), Answer::no);
    EXPECT_EQ(ui.taskDialog({u"a.B", u"", u"", u"", {{1000, u"Keep"}, {1001, u"Drop"}}, 0, {}}), 1001);
    ryv::FormRequest form{u"f", u"t", {{ryv::FormField::Kind::text, u"name", u"", {}, {}}}, u"", u""};
    EXPECT_TRUE(ui.fillForm(form));
    EXPECT_EQ(form.fields[0].values, (ryv::CStringArray{u"new"}));
    ryv::Menu menu(u"M");
    menu.add(5, u"Five");
    EXPECT_EQ(ui.popupMenu(menu, {}), 5);
    EXPECT_TRUE(warnings.empty());
}

TEST_F(FilesTest, leavingTheHost_cancelsEveryKind) {
    const Step leave = [this](QWidget&) {
        EXPECT_EQ(standing, 1);
        quit_ = true;
        ui.closeAll();
    };
    answerWith(std::vector<Step>(5, leave));
    ryv::FormRequest form{u"f", u"t", {{ryv::FormField::Kind::text, u"name", u"", {}, {}}}, u"", u""};
    ryv::Menu menu;
    menu.add(5, u"Five");
    const std::vector<std::function<void()>> questions = {
        [&] {
            EXPECT_EQ(ui.messageBox({7, u"?", u"", {}, MessageButtons::okCancel}), Answer::cancel);
        },
        [&] {
            EXPECT_EQ(ui.taskDialog({u"x", u"", u"", u"", {{6, u"Yes"}}, 6, {}}), 2);
        },
        [&] { EXPECT_FALSE(ui.fillForm(form)); },
        [&] { EXPECT_TRUE(ui.chooseFiles(request(false)).empty()); },
        [&] { EXPECT_EQ(ui.popupMenu(menu, {}), 0); },
    };
    for (const auto& ask : questions) {
        quit_ = false;
        ask();
        ask(); // cancelled before it stands
    }
}

TEST(QtWaitCursorTest, usualCursor_isBackWhileAQuestionStands) {
    WaitCursor state;
    QtWaitCursor cursor(state);
    EXPECT_TRUE(cursor.RyvBeginWaitCursor());
    cursor.RyvBeginWaitCursor();
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    cursor.questionStands(true);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    cursor.questionStands(false);
    EXPECT_NE(QGuiApplication::overrideCursor(), nullptr);
    cursor.RyvEndWaitCursor();
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_FALSE(state.isShown());
}

} // namespace
} // namespace drafta
