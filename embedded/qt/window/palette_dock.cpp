#include "embedded/qt/window/palette_dock.h"

#include "embedded/qt/qt_text.h"
#include "embedded/qt/window/dock_buttons.h"
#include "embedded/qt/window/palette_view.h"

#include <QBoxLayout>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QMainWindow>
#include <QScopedValueRollback>
#include <QScreen>
#include <QStackedWidget>
#include <QTabBar>

#include <algorithm>

namespace drafta {

namespace {

Qt::DockWidgetArea areaOf(Dock dock) {
    switch (dock) {
    case Dock::left:
        return Qt::LeftDockWidgetArea;
    case Dock::right:
        return Qt::RightDockWidgetArea;
    case Dock::top:
        return Qt::TopDockWidgetArea;
    case Dock::bottom:
        return Qt::BottomDockWidgetArea;
    case Dock::floating:
        break;
    }
    return Qt::NoDockWidgetArea;
}

Dock dockOf(Qt::DockWidgetArea area) {
    for (const Dock dock : {Dock::left, Dock::right, Dock::top, Dock::bottom})
        if (areaOf(dock) == area)
            return dock;
    return Dock::floating;
}

bool isUpright(Dock dock) {
    return dock == Dock::left || dock == Dock::right;
}

} // namespace

PaletteDock::PaletteDock(PaletteSet& set, ViewContext& context, QMainWindow& window)
    : QDockWidget(&window), set_(set), context_(context), window_(window), tabs_(new QTabBar),
      palettes_(new QStackedWidget) {
    setObjectName(toQt(set.toolId()));
    setAllowedAreas(Qt::AllDockWidgetAreas);
    setMinimumSize(160, 120);
    tabs_->setDrawBase(false);
    auto* const content = new QWidget;
    auto* const all = new QVBoxLayout(content);
    all->setContentsMargins(0, 0, 0, 0);
    all->setSpacing(0);
    all->addWidget(tabs_);
    all->addWidget(palettes_, 1);
    setWidget(content);
    explainTitleButtons(*this);
    window_.addDockWidget(Qt::LeftDockWidgetArea, this);
    hide();
    connect(tabs_, &QTabBar::currentChanged, this, [this](int tab) {
        if (!following_)
            set_.selectPalette(tab);
    });
    connect(this, &QDockWidget::topLevelChanged, this, [this] { tellPlace(); });
    connect(this, &QDockWidget::dockLocationChanged, this, [this] { tellPlace(); });
    subscription_ = set_.changed.subscribe([this] { follow(); });
    follow();
}

void PaletteDock::takePalettes() {
    std::map<Palette*, QWidget*> kept;
    for (const auto& each : set_.palettes()) {
        const auto old = views_.find(each.get());
        if (old != views_.end()) {
            kept.insert(*old);
            continue;
        }
        QWidget* const view = new PaletteView(*each, context_, palettes_);
        palettes_->addWidget(view);
        kept.emplace(each.get(), view);
    }
    for (const auto& [palette, view] : views_)
        if (!kept.contains(palette))
            delete view;
    views_ = std::move(kept);
    while (tabs_->count() > 0)
        tabs_->removeTab(0);
    for (const auto& each : set_.palettes())
        tabs_->addTab(toQt(each->name()));
    tabs_->setVisible(set_.palettes().size() > 1);
}

void PaletteDock::follow() {
    if (following_)
        return;
    const QScopedValueRollback<bool> guard(following_, true);
    setWindowTitle(toQt(set_.name()));
    takePalettes();
    if (Palette* const shown = set_.shownPalette()) {
        tabs_->setCurrentIndex(set_.activePalette());
        palettes_->setCurrentWidget(views_.at(shown));
    }
    place();
}

void PaletteDock::place() {
    const ryv::ScreenRectangle& wanted = set_.rectangle();
    const QRect rectangle(wanted.left, wanted.top, wanted.width, wanted.height);
    const bool shown = set_.isVisible();
    if (set_.dock() == Dock::floating) {
        if (!isFloating())
            setFloating(true);
        if (geometry() != rectangle && rectangle.isValid())
            setGeometry(rectangle);
    } else {
        if (isFloating() || window_.dockWidgetArea(this) != areaOf(set_.dock())) {
            setFloating(false);
            window_.addDockWidget(areaOf(set_.dock()), this);
        }
        if (!isVisible() && shown) {
            const bool upright = isUpright(set_.dock());
            const int usual = upright ? wanted.width : wanted.height;
            window_.resizeDocks({this}, {set_.dockedSize() > 0 ? set_.dockedSize() : usual},
                upright ? Qt::Horizontal : Qt::Vertical);
        }
    }
    // A rolled-up set shows its title alone.
    widget()->setMaximumHeight(set_.isRolledUp() ? 0 : QWIDGETSIZE_MAX);
    if (isHidden() == shown)
        setVisible(shown);
}

/// What the person has done with it.
void PaletteDock::tellPlace() {
    if (following_ || !telling_ || !isVisible())
        return;
    const QScopedValueRollback<bool> guard(following_, true);
    const QRect at = geometry();
    if (isFloating())
        set_.floatAt({at.x(), at.y(), at.width(), at.height()});
    else
        set_.dockAt(dockOf(window_.dockWidgetArea(this)));
}

bool PaletteDock::event(QEvent* event) {
    const bool handled = QDockWidget::event(event);
    const bool isDropped = event->type() == QEvent::MouseButtonRelease ||
                           event->type() == QEvent::NonClientAreaMouseButtonRelease;
    if (isDropped && isFloating() && telling_)
        comeOntoScreen();
    return handled;
}

/// Who drops a high palette at the lower edge would never see most of it.
void PaletteDock::comeOntoScreen() {
    const QRect at = geometry();
    int seen = 0;
    for (const QScreen* const each : QGuiApplication::screens()) {
        const QRect part = each->availableGeometry().intersected(at);
        seen += part.width() * part.height();
    }
    if (2 * seen >= at.width() * at.height())
        return;
    const QRect room = screen()->availableGeometry();
    QRect inside(at.topLeft(), at.size().boundedTo(room.size()));
    inside.moveLeft(std::clamp(at.left(), room.left(), room.right() + 1 - inside.width()));
    inside.moveTop(std::clamp(at.top(), room.top(), room.bottom() + 1 - inside.height()));
    setGeometry(inside);
}

void PaletteDock::closeEvent(QCloseEvent* event) {
    QDockWidget::closeEvent(event);
    if (telling_ && event->isAccepted())
        set_.show(false);
}

void PaletteDock::resizeEvent(QResizeEvent* event) {
    QDockWidget::resizeEvent(event);
    if (isFloating())
        tellPlace();
    else if (!following_ && telling_ && isVisible())
        set_.setDockedSize(isUpright(set_.dock()) ? width() : height());
}

void PaletteDock::moveEvent(QMoveEvent* event) {
    QDockWidget::moveEvent(event);
    if (isFloating())
        tellPlace();
}

void PaletteDock::enterEvent(QEnterEvent* event) {
    QDockWidget::enterEvent(event);
    if (set_.isRolledUp())
        set_.rollOut();
}

void PaletteDock::leaveEvent(QEvent* event) {
    QDockWidget::leaveEvent(event);
    if (set_.isFloating() && set_.rollsUpAutomatically() && !set_.isRolledUp())
        set_.setRollsUp(true);
}

} // namespace drafta
