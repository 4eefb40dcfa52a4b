// The host's window: the drawings that are open, the command line, palettes at its sides, menus.
#pragma once

#include "base/event.h"
#include "embedded/qt/controls/control_view.h"
#include "embedded/qt/look/theme.h"
#include "embedded/qt/window/host_loop.h"

#include <QMainWindow>

#include <map>

class QLabel;
class QStackedWidget;
class QTabWidget;

namespace drafta {

class CommandPane;
class PaletteDock;

class HostWindow : public QMainWindow, private MainWindowView, private ryv::ThemeObserver {
    Q_OBJECT

public:
    /// Draws the host, which outlives it; the loop and the context of the views too.
    HostWindow(Host& host, HostLoop& loop, ViewContext& context);
    ~HostWindow() override;

    /// Shows the window where it was at the end of the last run.
    void open();

    /// Keeps its place for the next run, and lets go of everything in the host that may end before it.
    void letGo();

    CommandPane& commands() noexcept { return *commands_; }
    /// The dock of a palette set by its name; null when there is none.
    PaletteDock* dock(ryv::CStringView toolId) const;

    /// A drawing of the whole window with what floats above it, for a picture.
    QPixmap picture();

    /// Which look the person wants; nothing: that of the system.
    void choose(std::optional<Look> look);

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private slots:
    void showLook();

private:
    // MainWindowView
    ryv::ScreenRectangle rectangle() override;
    ryv::ScreenRectangle documentArea() override;
    int screenHeight() override;
    ryv::DpiFactors dpiFactors() override;
    void focus() override;

    void themeChanged() override;

    void addMenus();
    void addFileMenu();
    void addViewMenu();
    void addHelpMenu();
    void addLooks(QMenu& menu);
    QAction* addCommand(QMenu& menu, const QString& text, const QKeySequence& key, const QString& line);
    void openDrawings();
    void openProject();
    void showAbout();

    void refresh();
    void refreshDocuments();
    void refreshTitle();
    void refreshPrompt();
    void refreshDocks();
    void addDock(PaletteSet& set);
    void restoreTab(PaletteDock& dock);
    QStringList tabsToKeep() const;
    void showCommandLine(const QString& typed = {});
    void activateDocument(int tab);
    void closeDocument(int tab);

    void restorePlace();
    void keepPlace();

    Host& host_;
    HostLoop& loop_;
    ViewContext& context_;
    QStackedWidget* center_;
    QTabWidget* documents_;
    CommandPane* commands_;
    QDockWidget* commandDock_;
    QMenu* paletteMenu_ = nullptr;
    QLabel* busy_;
    std::map<ryv::DocumentId, QWidget*> views_;
    std::vector<PaletteDock*> docks_;
    QStringList tabbed_; // docks that are to be tabbed with the command line when they come
    QString inFront_;    // of these
    std::optional<Look> chosen_;
    bool refreshing_ = false;
    bool leaving_ = false;
    std::vector<ryv::Subscription> subscriptions_;
};

} // namespace drafta
