#include "embedded/qt/window/host_window.h"

#include "base/paths.h"
#include "embedded/qt/drawing/document_view.h"
#include "embedded/qt/look/icons.h"
#include "embedded/qt/qt_text.h"
#include "embedded/qt/window/command_pane.h"
#include "embedded/qt/window/dock_buttons.h"
#include "embedded/qt/window/palette_dock.h"

#include <QApplication>
#include <QBoxLayout>
#include <QCloseEvent>
#include <QLabel>
#include <QPainter>
#include <QPointer>
#include <QScopedValueRollback>
#include <QScreen>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTabWidget>

#include <algorithm>

namespace drafta {

namespace {

constexpr ryv::CStringView placeKey = u"Software\\drafta\\Window";

QWidget* makeEmptyState() {
    auto* const page = new QWidget;
    auto* const all = new QVBoxLayout(page);
    all->setAlignment(Qt::AlignCenter);
    auto* const title = new QLabel(HostWindow::tr("No drawing is open"));
    QFont large = title->font();
    large.setPointSizeF(large.pointSizeF() * 1.4);
    title->setFont(large);
    title->setAlignment(Qt::AlignCenter);
    auto* const text = new QLabel(
        HostWindow::tr("Double-click a drawing in the Project Manager, or press Ctrl+O to open one."));
    text->setAlignment(Qt::AlignCenter);
    text->setWordWrap(true);
    text->setForegroundRole(QPalette::PlaceholderText);
    all->addWidget(title);
    all->addWidget(text);
    return page;
}

} // namespace

HostWindow::HostWindow(Host& host, HostLoop& loop, ViewContext& context)
    : host_(host), loop_(loop), context_(context), center_(new QStackedWidget), documents_(new QTabWidget),
      commands_(new CommandPane), commandDock_(new QDockWidget(tr("Command line"))), busy_(new QLabel) {
    setWindowIcon(themeIcon("drafta"));
    setDockOptions(AnimatedDocks | AllowNestedDocks | AllowTabbedDocks);
    setCorner(Qt::BottomLeftCorner, Qt::LeftDockWidgetArea);
    setCorner(Qt::BottomRightCorner, Qt::RightDockWidgetArea);
    documents_->setDocumentMode(true);
    documents_->setTabsClosable(true);
    documents_->setMovable(false);
    documents_->setElideMode(Qt::ElideMiddle);
    center_->addWidget(makeEmptyState());
    center_->addWidget(documents_);
    setCentralWidget(center_);

    commandDock_->setObjectName(QStringLiteral("CommandLine"));
    commandDock_->setAllowedAreas(Qt::TopDockWidgetArea | Qt::BottomDockWidgetArea);
    commandDock_->setWidget(commands_);
    explainTitleButtons(*commandDock_);
    addDockWidget(Qt::BottomDockWidgetArea, commandDock_);
    statusBar()->addPermanentWidget(busy_);
    addMenus();

    connect(&loop_, &HostLoop::printed, commands_, &CommandPane::print);
    connect(&loop_, &HostLoop::problemPrinted, commands_, &CommandPane::printProblem);
    connect(&loop_, &HostLoop::ran, this, [this] { refresh(); });
    connect(&loop_, &HostLoop::prompted, this, [this] { refreshPrompt(); });
    connect(&loop_, &HostLoop::busy, this, [this](bool isBusy) {
        busy_->setText(isBusy ? tr("Working... Esc stops it") : QString());
        if (isBusy)
            QApplication::setOverrideCursor(Qt::BusyCursor);
        else
            QApplication::restoreOverrideCursor();
    });
    connect(commands_, &CommandPane::entered, &loop_, &HostLoop::enter);
    connect(commands_, &CommandPane::cancelled, &loop_, &HostLoop::cancel);
    connect(documents_, &QTabWidget::currentChanged, this, [this](int tab) { activateDocument(tab); });
    connect(documents_, &QTabWidget::tabCloseRequested, this, [this](int tab) { closeDocument(tab); });
    subscriptions_.push_back(host_.palettes().setsChanged.subscribe([this] { refreshDocks(); }));
    host_.mainWindow().setView(this);
    host_.mainWindow().add(*this);
    refreshDocks();
    refresh();
}

HostWindow::~HostWindow() {
    letGo();
}

void HostWindow::open() {
    restorePlace();
    followSystemLook(*this, SLOT(showLook()));
    showLook();
    show();
    commands_->takeKeyboard();
}

void HostWindow::letGo() {
    if (std::exchange(leaving_, true))
        return;
    keepPlace();
    for (PaletteDock* const dock : docks_)
        dock->stopTelling();
    qDeleteAll(std::exchange(docks_, {}));
    for (const auto& [id, view] : std::exchange(views_, {}))
        delete view;
    subscriptions_.clear();
    host_.mainWindow().remove(*this);
    host_.mainWindow().setView(nullptr);
}

// -- What the host asks of its window

ryv::ScreenRectangle HostWindow::rectangle() {
    const QRect at = frameGeometry();
    return {at.x(), at.y(), at.width(), at.height()};
}

ryv::ScreenRectangle HostWindow::documentArea() {
    const QPoint corner = center_->mapToGlobal(QPoint(0, 0));
    return {corner.x(), corner.y(), center_->width(), center_->height()};
}

int HostWindow::screenHeight() {
    return screen()->availableGeometry().height();
}

/// Qt counts in units that are scaled already.
ryv::DpiFactors HostWindow::dpiFactors() {
    return {screen()->logicalDotsPerInchX() / 96, screen()->logicalDotsPerInchY() / 96};
}

void HostWindow::focus() {
    activateWindow();
    commands_->takeKeyboard();
}

// -- Documents

void HostWindow::refresh() {
    if (leaving_ || refreshing_)
        return;
    const QScopedValueRollback<bool> guard(refreshing_, true);
    refreshDocuments();
    refreshTitle();
    refreshPrompt();
}

void HostWindow::refreshDocuments() {
    const std::vector<ryv::DocumentId> open = host_.documents().documents();
    for (auto view = views_.begin(); view != views_.end();) {
        const bool isOpen = std::find(open.begin(), open.end(), view->first) != open.end();
        if (!isOpen)
            delete view->second;
        view = isOpen ? std::next(view) : views_.erase(view);
    }
    for (const ryv::DocumentId id : open) {
        if (!views_.contains(id))
            views_.emplace(id, makeDocumentView(host_.documents(), id, documents_));
        QWidget* const view = views_.at(id);
        const Document* const document = host_.documents().find(id);
        const ryv::CString path = document->name;
        const QString name = toQt(ryv::paths::findFileName(path));
        const QString shown = document->drawing->isModified() ? name + u'*' : name;
        int tab = documents_->indexOf(view);
        if (tab < 0)
            tab = documents_->addTab(view, shown);
        documents_->setTabText(tab, shown);
        documents_->setTabToolTip(tab, document->isNamed ? context_.shownPath(path) : name);
        refreshDocumentView(*view);
    }
    const auto current = views_.find(host_.documents().currentDocument());
    if (current != views_.end())
        documents_->setCurrentWidget(current->second);
    center_->setCurrentIndex(views_.empty() ? 0 : 1);
}

/// The drawing, the project, the program: what tells windows apart comes first.
void HostWindow::refreshTitle() {
    QStringList parts;
    if (const int tab = documents_->currentIndex(); tab >= 0)
        parts += documents_->tabText(tab);
    if (const ryv::CString project = host_.activeProject(); !project.empty())
        parts += toQt(ryv::paths::removeExtension(ryv::paths::findFileName(project)));
    parts += QStringLiteral("drafta");
    setWindowTitle(parts.join(QStringLiteral(" \u2013 ")));
}

void HostWindow::refreshPrompt() {
    if (leaving_)
        return;
    commands_->setPrompt(loop_.prompt(), loop_.isAsking());
    if (loop_.isAsking())
        showCommandLine(); // or nobody knows what is waited for
}

void HostWindow::showCommandLine(const QString& typed) {
    commandDock_->show();
    commandDock_->raise();
    commands_->takeKeyboard(typed);
}

void HostWindow::activateDocument(int tab) {
    if (refreshing_ || tab < 0)
        return;
    for (const auto& [id, view] : views_)
        if (view == documents_->widget(tab))
            loop_.perform([this, wanted = id] { host_.documents().activate(wanted); });
}

void HostWindow::closeDocument(int tab) {
    for (const auto& [id, view] : views_)
        if (view == documents_->widget(tab))
            loop_.perform([this, wanted = id] {
                host_.documents().activate(wanted);
                host_.commandLine().runCommand({u"_.CLOSE"});
            });
}

// -- Palettes

void HostWindow::refreshDocks() {
    const std::vector<PaletteSet*>& sets = host_.palettes().sets();
    std::erase_if(docks_, [&sets](PaletteDock* dock) {
        const bool isGone = std::find(sets.begin(), sets.end(), &dock->set()) == sets.end();
        if (isGone)
            delete dock;
        return isGone;
    });
    for (PaletteSet* const set : sets) {
        const bool isThere = std::any_of(
            docks_.begin(), docks_.end(), [set](const PaletteDock* dock) { return &dock->set() == set; });
        if (!isThere)
            addDock(*set);
    }
}

void HostWindow::addDock(PaletteSet& set) {
    auto* const dock = new PaletteDock(set, context_, *this);
    docks_.push_back(dock);
    // Not in the middle of what the dock does about its place.
    connect(
        dock, &QDockWidget::visibilityChanged, this,
        [this, shown = QPointer(dock)] {
            if (shown) // a palette may go before the queue comes to this
                restoreTab(*shown);
        },
        Qt::QueuedConnection);
}

/// Once, as soon as it stands beside the command line again.
void HostWindow::restoreTab(PaletteDock& dock) {
    if (!tabbed_.contains(dock.objectName()) || dock.isHidden() || dock.isFloating() ||
        dockWidgetArea(&dock) != dockWidgetArea(commandDock_))
        return;
    tabbed_.removeAll(dock.objectName());
    tabifyDockWidget(commandDock_, &dock);
    (inFront_ == dock.objectName() ? &dock : commandDock_)->raise();
}

PaletteDock* HostWindow::dock(ryv::CStringView toolId) const {
    const auto hit = std::find_if(docks_.begin(), docks_.end(),
        [toolId](const PaletteDock* dock) { return dock->set().toolId() == toolId; });
    return hit == docks_.end() ? nullptr : *hit;
}

// -- The window itself

void HostWindow::closeEvent(QCloseEvent* event) {
    event->setAccepted(leaving_ || host_.hasQuit());
    if (!event->isAccepted())
        loop_.leave();
}

/// What is typed into a drawing goes to the command line.
void HostWindow::keyPressEvent(QKeyEvent* event) {
    const QString text = event->text();
    if (event->key() == Qt::Key_Escape)
        loop_.cancel();
    else if (!text.isEmpty() && text.front().isPrint() &&
             !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier)))
        showCommandLine(text);
    else
        QMainWindow::keyPressEvent(event);
}

QPixmap HostWindow::picture() {
    QPixmap image = grab();
    QPainter painter(&image);
    for (const PaletteDock* const dock : docks_) {
        if (!dock->isVisible() || !dock->isFloating())
            continue;
        const QPoint at = dock->pos() - pos();
        painter.drawPixmap(at, const_cast<PaletteDock*>(dock)->grab());
        painter.setPen(currentTheme().line);
        painter.drawRect(QRect(at, dock->size()).adjusted(-1, -1, 0, 0));
    }
    return image;
}

void HostWindow::restorePlace() {
    ryv::CString place;
    resize(QSize(1280, 800).boundedTo(screen()->availableSize() * 9 / 10));
    if (host_.platform().os.registry->readString(placeKey, u"Geometry", place) == ryv::RegistryStatus::ok)
        restoreGeometry(QByteArray::fromHex(toQt(place).toLatin1()));
    std::uint32_t height = 150;
    static_cast<void>(host_.platform().os.registry->readInteger(placeKey, u"CommandLine", height));
    resizeDocks({commandDock_}, {std::clamp(static_cast<int>(height), 60, 600)}, Qt::Vertical);
    ryv::CString tabs;
    if (host_.platform().os.registry->readString(placeKey, u"Tabs", tabs) == ryv::RegistryStatus::ok) {
        tabbed_ = toQt(tabs).split(u' ', Qt::SkipEmptyParts);
        inFront_ = tabbed_.isEmpty() ? QString() : tabbed_.first();
    }
    ryv::CString look;
    if (host_.platform().os.registry->readString(placeKey, u"Look", look) == ryv::RegistryStatus::ok)
        for (const auto& [name, value] : {std::pair(u"light", Look::light), std::pair(u"dark", Look::dark),
                 std::pair(u"contrast", Look::highContrast)})
            if (look == name)
                chosen_ = value;
}

/// The names of the docks that share their place with the command line, it among them; the first is in front.
QStringList HostWindow::tabsToKeep() const {
    QStringList names;
    for (const QDockWidget* const dock : tabifiedDockWidgets(commandDock_)) {
        const bool inFront = !dock->visibleRegion().isEmpty();
        names.insert(inFront ? 0 : names.size(), dock->objectName());
    }
    if (!names.isEmpty())
        names.insert(commandDock_->visibleRegion().isEmpty() ? names.size() : 0, commandDock_->objectName());
    return names;
}

void HostWindow::keepPlace() {
    ryv::Registry& registry = *host_.platform().os.registry;
    const ryv::CString place = fromQt(QString::fromLatin1(saveGeometry().toHex()));
    if (registry.createKey(placeKey) != ryv::RegistryStatus::ok)
        return; // whoever cannot keep it there has been told
    static_cast<void>(registry.writeString(placeKey, u"Geometry", place));
    if (!commandDock_->isFloating() && commandDock_->isVisible())
        static_cast<void>(registry.writeInteger(
            placeKey, u"CommandLine", static_cast<std::uint32_t>(commandDock_->height())));
    static_cast<void>(registry.writeString(placeKey, u"Tabs", fromQt(tabsToKeep().join(u' '))));
    const char16_t* const look = !chosen_                  ? u""
                                 : *chosen_ == Look::light ? u"light"
                                 : *chosen_ == Look::dark  ? u"dark"
                                                           : u"contrast";
    static_cast<void>(registry.writeString(placeKey, u"Look", look));
}

// -- Looks

void HostWindow::choose(std::optional<Look> look) {
    chosen_ = look;
    showLook();
}

void HostWindow::showLook() {
    const Look look = chosen_.value_or(systemLook());
    applyTheme(*qApp, themeFor(look));
    host_.mainWindow().setTheme(currentTheme().isDark() ? ryv::HostTheme::dark : ryv::HostTheme::light);
}

/// Somebody has set the host's theme: by a command, say.
void HostWindow::themeChanged() {
    const bool dark = host_.mainWindow().theme() == ryv::HostTheme::dark;
    if (dark != currentTheme().isDark())
        choose(dark ? Look::dark : Look::light);
}

} // namespace drafta
