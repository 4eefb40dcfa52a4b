// The menus of the host's window.
#include "embedded/qt/look/icons.h"
#include "embedded/qt/qt_text.h"
#include "embedded/qt/window/command_pane.h"
#include "embedded/qt/window/host_window.h"
#include "embedded/qt/window/palette_dock.h"
#include "embedded/services/host_texts.h"

#include <QActionGroup>
#include <QDockWidget>
#include <QMenuBar>

namespace drafta {

void HostWindow::addMenus() {
    addFileMenu();
    addViewMenu();
    addHelpMenu();
}

QAction* HostWindow::addCommand(
    QMenu& menu, const QString& text, const QKeySequence& key, const QString& line) {
    QAction* const action = menu.addAction(text);
    action->setShortcut(key);
    connect(action, &QAction::triggered, this,
        [this, line] { loop_.perform([this, line] { host_.commandLine().runCommand({fromQt(line)}); }); });
    return action;
}

void HostWindow::addFileMenu() {
    QMenu& menu = *menuBar()->addMenu(tr("&File"));
    addCommand(menu, tr("&New drawing"), QKeySequence::New, QStringLiteral("_.NEW"));
    QAction* const open = menu.addAction(tr("&Open drawing..."));
    open->setShortcut(QKeySequence::Open);
    connect(open, &QAction::triggered, this, [this] { loop_.perform([this] { openDrawings(); }); });
    addCommand(menu, tr("&Save"), QKeySequence::Save, QStringLiteral("_.QSAVE"));
    addCommand(menu, tr("&Close"), QKeySequence::Close, QStringLiteral("_.CLOSE"));
    menu.addSeparator();
    QAction* const project = menu.addAction(themeIcon("openproj"), tr("Open &project..."));
    project->setShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_O);
    connect(project, &QAction::triggered, this, [this] { loop_.perform([this] { openProject(); }); });
    menu.addSeparator();
    QAction* const quit = menu.addAction(tr("&Quit"));
    quit->setShortcut(QKeySequence::Quit);
    connect(quit, &QAction::triggered, this, [this] { loop_.leave(); });
}

void HostWindow::openDrawings() {
    ryv::FileRequest request;
    request.text = fromQt(tr("Open drawings"));
    request.extension = u".dwg";
    request.many = true;
    for (const ryv::CString& path : host_.platform().ui->chooseFiles(request))
        host_.openDocument(path);
}

void HostWindow::openProject() {
    ryv::FileRequest request;
    request.text = fromQt(tr("Open a project"));
    request.extension = u".kqp";
    for (const ryv::CString& path : host_.platform().ui->chooseFiles(request))
        host_.openProject(path);
}

/// The palettes are those that modules have registered as tools.
void HostWindow::addViewMenu() {
    QMenu& menu = *menuBar()->addMenu(tr("&View"));
    connect(&menu, &QMenu::aboutToShow, this, [this, &menu] {
        menu.clear();
        for (const ryv::HostTool& tool : host_.palettes().tools()) {
            PaletteDock* const shown = dock(tool.id);
            QAction* const action = menu.addAction(toQt(hostText(tool.name)));
            action->setCheckable(true);
            action->setChecked(shown && shown->set().isVisible());
            connect(action, &QAction::triggered, this, [this, shown, command = tool.command](bool checked) {
                loop_.perform([this, shown, command, checked] {
                    if (checked)
                        host_.commandLine().runCommand({u"_." + command});
                    else if (shown)
                        shown->set().show(false);
                });
            });
        }
        menu.addAction(commandDock_->toggleViewAction());
        menu.addSeparator();
        addLooks(*menu.addMenu(tr("&Look")));
    });
}

void HostWindow::addLooks(QMenu& menu) {
    auto* const group = new QActionGroup(&menu);
    const auto add = [this, &menu, group](const QString& text, std::optional<Look> look) {
        QAction* const action = group->addAction(menu.addAction(text));
        action->setCheckable(true);
        action->setChecked(chosen_ == look);
        connect(action, &QAction::triggered, this, [this, look] { choose(look); });
    };
    add(tr("&System"), std::nullopt);
    add(tr("&Light"), Look::light);
    add(tr("&Dark"), Look::dark);
    add(tr("&High contrast"), Look::highContrast);
}

void HostWindow::addHelpMenu() {
    QMenu& menu = *menuBar()->addMenu(tr("&Help"));
    addCommand(menu, tr("&Commands"), QKeySequence::HelpContents, QStringLiteral("_.HELP"));
    connect(menu.addAction(themeIcon("help"), tr("&Project Manager")), &QAction::triggered, this, [this] {
        loop_.perform([this] { host_.platform().services.help->showTopic(u"project_manager_dialog"); });
    });
    menu.addSeparator();
    connect(menu.addAction(themeIcon("info"), tr("&About drafta")), &QAction::triggered, this,
        [this] { loop_.perform([this] { showAbout(); }); });
}

void HostWindow::showAbout() {
    ryv::MessageBoxRequest request;
    request.caption = u"drafta";
    request.text = fromQt(tr("drafta, the host that comes with the project manager.\n\nIt keeps drawings, "
                             "commands and LISP; the module RyvPageMan shows your projects in it."));
    host_.platform().ui->messageBox(request);
}

} // namespace drafta
