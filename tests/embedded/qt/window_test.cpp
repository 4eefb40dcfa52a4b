// The window around the host: docks, the command line, the host in the event loop, themes.
#include "embedded/palettes/palette_framework.h"
#include "embedded/qt/look/theme.h"
#include "embedded/qt/qt_text.h"
#include "embedded/qt/window/command_pane.h"
#include "embedded/qt/window/host_loop.h"
#include "embedded/qt/window/host_window.h"
#include "embedded/qt/window/palette_dock.h"
#include "tests/embedded/palettes/palette_client.h"
#include "tests/support/memory_files.h"
#include "tests/support/scripted_loop.h"
#include "tests/support/temp_folder.h"

#include <QLineEdit>
#include <QMainWindow>
#include <QScreen>
#include <QTabBar>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <gtest/gtest.h>

#include <cmath>

namespace drafta {
namespace {

class PaletteDockTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(client.create());
        client.set->enableDocking(ryv::DockingSides::all);
        window.resize(800, 600);
        window.show();
    }
    PaletteSet& set() { return *palettes.sets().at(0); }

    ryv::test::MemoryFiles files;
    ryv::test::ScriptedClock clock;
    ryv::test::ScriptedMessageLoop loop{clock};
    MainWindow mainWindow{loop, {1000, 800, 100}, false, [] { return true; }};
    Workspace workspace{files, u"\\p\\workspace.xml", [](ryv::CStringView) {}};
    PaletteFramework palettes{{loop, mainWindow, workspace, [](ryv::CStringView) {}}};
    test::PaletteClient client{palettes};
    QMainWindow window;
    ViewContext context;
};

TEST_F(PaletteDockTest, dock_isWhereTheSetSays) {
    PaletteDock dock(set(), context, window);
    EXPECT_FALSE(dock.isVisible());
    client.set->restoreFloating({50, 60, 300, 400});
    client.set->show(true);
    EXPECT_TRUE(dock.isVisible() && dock.isFloating());
    EXPECT_EQ(dock.geometry(), QRect(50, 60, 300, 400));
    const std::pair<Dock, Qt::DockWidgetArea> places[] = {{Dock::right, Qt::RightDockWidgetArea},
        {Dock::top, Qt::TopDockWidgetArea}, {Dock::bottom, Qt::BottomDockWidgetArea},
        {Dock::left, Qt::LeftDockWidgetArea}};
    for (const auto& [place, area] : places) {
        ASSERT_TRUE(set().dockAt(place));
        EXPECT_FALSE(dock.isFloating());
        EXPECT_EQ(window.dockWidgetArea(&dock), area);
    }
    client.set->show(false);
    EXPECT_FALSE(dock.isVisible());
}

TEST_F(PaletteDockTest, whatThePersonDoes_isTheSets) {
    PaletteDock dock(set(), context, window);
    set().dockAt(Dock::left);
    client.set->show(true);
    dock.setFloating(true);
    EXPECT_EQ(set().dock(), Dock::floating);
    dock.setGeometry(70, 80, 310, 420);
    EXPECT_EQ(set().rectangle(), (ryv::ScreenRectangle{70, 80, 310, 420}));
    dock.setFloating(false);
    window.addDockWidget(Qt::RightDockWidgetArea, &dock);
    EXPECT_EQ(set().dock(), Dock::right);
    dock.close();
    EXPECT_FALSE(set().isVisible());
    client.set->show(true);
    dock.stopTelling(); // the window ends: that closes it, and nobody wants it closed
    dock.close();
    EXPECT_TRUE(set().isVisible());
}

TEST_F(PaletteDockTest, droppedMostlyOffTheScreen_comesBack) {
    PaletteDock dock(set(), context, window);
    client.set->show(true);
    const QRect screen = dock.screen()->availableGeometry();
    const int width = 200, height = 400;
    struct {
        QPoint dropped, rests;
    } const cases[] = {
        {{50, screen.bottom() - 100}, {50, screen.bottom() + 1 - height}},
        {{50, screen.bottom() - 300}, {50, screen.bottom() - 300}},
        {{-190, 20}, {0, 20}},
        {{screen.right() - 10, 5000}, {screen.right() + 1 - width, screen.bottom() + 1 - height}},
    };
    for (const auto& [dropped, rests] : cases) {
        dock.setGeometry(QRect(dropped, QSize(width, height)));
        QTest::mouseRelease(&dock, Qt::LeftButton);
        EXPECT_EQ(dock.geometry().topLeft(), rests) << dropped.x() << ' ' << dropped.y();
        EXPECT_EQ(set().rectangle(), (ryv::ScreenRectangle{rests.x(), rests.y(), width, height}));
    }
}

TEST_F(PaletteDockTest, groups_areTurnedAndMinimized) {
    PaletteDock dock(set(), context, window);
    set().dockAt(Dock::left);
    client.set->show(true);
    GroupControl& group = static_cast<Palette*>(client.palette)->bottom();
    QTabBar* captions = nullptr;
    for (auto* const bar : dock.findChildren<QTabBar*>())
        if (bar->count() == 2)
            captions = bar;
    ASSERT_NE(captions, nullptr);
    QWidget& view = *captions->parentWidget()->parentWidget();
    QTest::mouseClick(captions, Qt::LeftButton, {}, captions->tabRect(1).center());
    EXPECT_EQ(group.selectedPage(), 1);
    QTest::mouseClick(view.findChild<QToolButton*>(), Qt::LeftButton);
    EXPECT_TRUE(group.isMinimized());
    EXPECT_LT(view.maximumHeight(), 100);
    QTest::mouseClick(captions, Qt::LeftButton, {}, captions->tabRect(1).center());
    EXPECT_FALSE(group.isMinimized()) << "the selected caption, too";
    ryv::Label only(9);
    client.palette->top().addPage(u"Only", only);
    for (const auto* const widget : dock.findChildren<QWidget*>())
        EXPECT_TRUE(!widget->focusProxy() || widget->focusProxy()->isVisible())
            << "Tab leads to what is hidden";
}

class HostLoopTest : public ::testing::Test {
protected:
    HostLoopTest() {
        HostOptions options;
        options.profileFolder = folder.native();
        options.productFolder = folder.native();
        host = std::make_unique<Host>(loop.connected(std::move(options)));
        QObject::connect(&loop, &HostLoop::printed, &pane, &CommandPane::print);
        QObject::connect(&loop, &HostLoop::problemPrinted, &pane, &CommandPane::printProblem);
        QObject::connect(&pane, &CommandPane::entered, &loop, &HostLoop::enter);
        QObject::connect(&pane, &CommandPane::cancelled, &loop, &HostLoop::cancel);
        QObject::connect(&loop, &HostLoop::busy, [this](bool isBusy) { busy += isBusy ? "busy " : "idle "; });
        loop.follow(*host);
        host->newDocument();
        pane.show();
    }
    void type(const QString& line) {
        auto* const input = pane.findChild<QLineEdit*>();
        QTest::keyClicks(input, line);
        QTest::keyClick(input, Qt::Key_Return);
    }
    bool prints(const char* text) {
        return QTest::qWaitFor([&] { return pane.printed().contains(QLatin1String(text)); }, 20'000);
    }
    bool isAsked() const { return loop.prompt() == QLatin1String("Drawing to open: "); }
    /// A question stands inside of what asks it, so who answers has to wait beside that.
    void whenAsked(std::function<void()> answer) {
        auto* const timer = new QTimer(&loop);
        QObject::connect(timer, &QTimer::timeout, &loop, [this, timer, answer = std::move(answer)] {
            if (!isAsked())
                return;
            timer->stop();
            answer();
        });
        timer->start(10);
    }

    ryv::test::TempFolder folder;
    HostLoop loop;
    CommandPane pane;
    std::unique_ptr<Host> host;
    std::string busy;
};

TEST_F(HostLoopTest, lines_areRunAndQuestionsAnswered) {
    type(QStringLiteral("(+ 40 2)"));
    EXPECT_TRUE(prints("42"));
    auto* const input = pane.findChild<QLineEdit*>();
    whenAsked([this] { type(QStringLiteral("/none/x.dwg")); });
    type(QStringLiteral("open"));
    EXPECT_TRUE(prints("/none/x.dwg: "));
    bool escaped = false;
    whenAsked([input, &escaped] {
        escaped = true;
        QTest::keyClick(input, Qt::Key_Escape);
    });
    type(QStringLiteral("open"));
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return escaped && loop.prompt() == QLatin1String("Command: "); }, 20'000));
    for (const char* const earlier : {"open", "/none/x.dwg", "open", "(+ 40 2)", "(+ 40 2)"}) {
        QTest::keyClick(input, Qt::Key_Up);
        EXPECT_EQ(input->text(), QLatin1String(earlier));
    }
}

TEST_F(HostLoopTest, leaving_cancelsTheQuestionFirst) {
    bool left = false;
    QObject::connect(&loop, &HostLoop::left, [&left] { left = true; });
    whenAsked([this] { loop.leave(); });
    type(QStringLiteral("open"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return left; }, 20'000));
}

/// Escape is pressed when the window draws itself for the first time in between; what is asked for meanwhile
/// waits.
TEST_F(HostLoopTest, longWork_showsThatItIsBusyAndEndsWithEscape) {
    bool performed = false;
    QObject::connect(&loop, &HostLoop::busy, [this, &performed](bool isBusy) {
        if (!isBusy)
            return;
        loop.perform([&performed] { performed = true; });
        QCoreApplication::postEvent(&pane, new QKeyEvent(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier));
    });
    type(QStringLiteral("(while T)"));
    EXPECT_TRUE(prints("interrupted"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return performed; }, 20'000));
    EXPECT_EQ(busy, "busy idle ");
}

TEST_F(HostLoopTest, longWorkOutOfAQuestion_leavesTheQuestionIdle) {
    QObject::connect(&loop, &HostLoop::busy, [this](bool isBusy) {
        if (isBusy)
            QCoreApplication::postEvent(
                &pane, new QKeyEvent(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier));
    });
    bool asked = false;
    loop.perform([&] {
        asked = true;
        loop.rest(); // a question stands from here on
        type(QStringLiteral("(while T)"));
        EXPECT_TRUE(prints("interrupted"));
        EXPECT_TRUE(QTest::qWaitFor([this] { return busy == "busy idle "; }, 20'000)) << busy;
        loop.rest();
        host->requestBreath(); // as the alarm did while it stood
        host->runLine(u"(repeat 10000 (setq x 1))");
    });
    EXPECT_TRUE(QTest::qWaitFor([&] { return asked && !loop.isAtWork(); }, 20'000));
    EXPECT_EQ(busy, "busy idle ") << "short work does not show";
}

TEST_F(HostLoopTest, title_namesDrawingAndActiveProject) {
    ViewContext context;
    HostWindow window(*host, loop, context);
    const auto shows = [&window](const QString& title) {
        return QTest::qWaitFor([&] { return window.windowTitle() == title; }, 20'000);
    };
    const QString drawing = window.windowTitle().section(u' ', 0, 0);
    EXPECT_TRUE(shows(drawing + QStringLiteral(" \u2013 drafta"))) << window.windowTitle().toStdString();
    type(QStringLiteral("(bb-set \"ryp-active-project\" \"/p/Pump Station.kqp\")"));
    EXPECT_TRUE(shows(drawing + QStringLiteral(" \u2013 Pump Station \u2013 drafta")));
    type(QStringLiteral("(bb-set \"ryp-active-project\" nil)"));
    EXPECT_TRUE(shows(drawing + QStringLiteral(" \u2013 drafta")));
}

/// A palette set that a person has tabbed with the command line, in this run and in the next one.
TEST_F(HostLoopTest, dockTabbedWithTheCommandLine_isSoAgain) {
    for (const bool isFirst : {true, false}) {
        test::PaletteClient client(host->palettes());
        ASSERT_TRUE(client.create());
        client.set->enableDocking(ryv::DockingSides::all);
        ViewContext context;
        HostWindow window(*host, loop, context);
        window.open();
        auto* const commands = window.findChild<QDockWidget*>(QStringLiteral("CommandLine"));
        PaletteDock* const dock = window.dock(u"{1}");
        ASSERT_NE(dock, nullptr);
        ASSERT_TRUE(dock->set().dockAt(Dock::bottom));
        client.set->show(true);
        if (isFirst) {
            window.tabifyDockWidget(commands, dock);
            dock->raise();
        }
        QTest::qWait(0);
        EXPECT_TRUE(
            QTest::qWaitFor([&] { return window.tabifiedDockWidgets(commands).contains(dock); }, 20'000));
        EXPECT_TRUE(QTest::qWaitFor([&] { return !dock->visibleRegion().isEmpty(); }, 20'000)) << "in front";
        window.letGo();
    }
}

double luminance(QColor color) {
    const auto part = [](double value) {
        return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(color.redF()) + 0.7152 * part(color.greenF()) + 0.0722 * part(color.blueF());
}

double contrast(QColor a, QColor b) {
    const double x = luminance(a), y = luminance(b);
    return (std::max(x, y) + 0.05) / (std::min(x, y) + 0.05);
}

TEST(Themes, texts_canBeReadOnTheirGrounds) {
    for (const Look look : {Look::light, Look::dark, Look::highContrast}) {
        const Theme theme = themeFor(look);
        const QPalette& colors = theme.palette;
        const double least = look == Look::highContrast ? 7 : 4.5;
        const QColor grounds[] = {colors.window().color(), colors.base().color()};
        for (const QColor& ground : grounds)
            for (const QColor& text : {colors.text().color(), theme.quietText, theme.accent, theme.warning})
                EXPECT_GE(contrast(text, ground), least)
                    << static_cast<int>(look) << ' ' << text.name().toStdString();
        for (const auto group : {QPalette::Active, QPalette::Inactive})
            EXPECT_GE(contrast(colors.color(group, QPalette::Highlight),
                          colors.color(group, QPalette::HighlightedText)),
                least);
        EXPECT_GE(contrast(theme.accentText, theme.accent), least);
        EXPECT_GE(contrast(theme.drawing, theme.canvas), least);
        EXPECT_GE(contrast(colors.text().color(), theme.noticeBase), least);
        EXPECT_GE(contrast(colors.text().color(), theme.markedBase), least);
        EXPECT_GE(contrast(theme.markedBase, colors.base().color()), 1.1) << "it is seen";
    }
}

TEST(Themes, look_followsTheDesktop) {
    const std::pair<const char*, Look> cases[] = {{"Adwaita", Look::light}, {"Adwaita:dark", Look::dark},
        {"Yaru-dark", Look::dark}, {"HighContrast", Look::highContrast}};
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/none");
    for (const auto& [name, look] : cases) {
        qputenv("GTK_THEME", name);
        EXPECT_EQ(systemLook(), look) << name;
    }
    qunsetenv("GTK_THEME");
}

} // namespace
} // namespace drafta
