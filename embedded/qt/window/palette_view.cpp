#include "embedded/qt/window/palette_view.h"

#include "embedded/qt/look/icons.h"
#include "embedded/qt/look/theme.h"
#include "embedded/qt/qt_text.h"

#include <QBoxLayout>
#include <QSplitter>
#include <QStackedWidget>
#include <QTabBar>
#include <QToolButton>

#include <cmath>

namespace drafta {

GroupView::GroupView(GroupControl& group, ViewContext& context, QWidget* parent)
    : QWidget(parent), group_(group), context_(context), captions_(new QTabBar), minimize_(new QToolButton),
      pages_(new QStackedWidget), bar_(new QWidget) {
    captions_->setDrawBase(false);
    captions_->setExpanding(false);
    captions_->setDocumentMode(true);
    minimize_->setAutoRaise(true);
    auto* const bar = new QHBoxLayout(bar_);
    bar->setContentsMargins(0, 0, metrics::gap / 2, 0);
    bar->addWidget(captions_, 1);
    bar->addWidget(minimize_);
    auto* const all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->setSpacing(0);
    all->addWidget(bar_);
    all->addWidget(pages_, 1);
    connect(captions_, &QTabBar::tabBarClicked, this, [this](int page) {
        if (page < 0)
            return;
        group_.selectPage(page);
        group_.setMinimized(false);
    });
    connect(captions_, &QTabBar::currentChanged, this, [this](int page) { // by keys
        if (page >= 0 && page != group_.selectedPage())
            group_.selectPage(page);
    });
    connect(minimize_, &QToolButton::clicked, this, [this] { group_.setMinimized(!group_.isMinimized()); });
    subscription_ = group_.changed.subscribe([this] { follow(); });
    follow();
}

bool GroupView::isEmpty() const {
    return group_.pages().empty();
}

int GroupView::captionHeight() const {
    return bar_->sizeHint().height();
}

void GroupView::addPages() {
    for (auto at = static_cast<std::size_t>(pages_->count()); at < group_.pages().size(); ++at) {
        const GroupControl::Page& page = group_.pages()[at];
        pages_->addWidget(makeControlView(*page.content, context_, pages_));
        const QSignalBlocker quiet(captions_);
        captions_->addTab(toQt(page.caption));
    }
}

void GroupView::follow() {
    addPages();
    const QSignalBlocker quiet(captions_);
    captions_->setCurrentIndex(group_.selectedPage());
    pages_->setCurrentIndex(group_.selectedPage());
    const bool minimized = group_.isMinimized();
    pages_->setVisible(!minimized);
    bar_->setVisible(group_.pages().size() > 1 || minimized);
    minimize_->setIcon(themeIcon(minimized ? "minimize" : "restore"));
    minimize_->setToolTip(minimized ? tr("Show the page") : tr("Show the captions only"));
    minimize_->setAccessibleName(minimize_->toolTip());
    setVisible(!isEmpty());
}

PaletteView::PaletteView(Palette& palette, ViewContext& context, QWidget* parent)
    : QWidget(parent), palette_(palette), context_(context), splitter_(new QSplitter(Qt::Vertical)),
      top_(new GroupView(palette.top(), context, nullptr)),
      bottom_(new GroupView(palette.bottom(), context, nullptr)) {
    splitter_->addWidget(top_);
    splitter_->addWidget(bottom_);
    splitter_->setChildrenCollapsible(false);
    splitter_->setHandleWidth(1);
    auto* const all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->setSpacing(0);
    all->addWidget(splitter_, 1);
    connect(splitter_, &QSplitter::splitterMoved, this, [this] {
        const QList<int> sizes = splitter_->sizes();
        const int whole = sizes[0] + sizes[1];
        if (whole <= 0 || palette_.top().isMinimized() || palette_.bottom().isMinimized())
            return;
        following_ = true; // what the person drags is not to be moved
        palette_.setTopToWholeRatio(static_cast<double>(sizes[0]) / whole);
        following_ = false;
    });
    subscriptions_.push_back(palette_.changed.subscribe([this] { follow(); }));
    subscriptions_.push_back(palette_.top().changed.subscribe([this] { share(); }));
    subscriptions_.push_back(palette_.bottom().changed.subscribe([this] { share(); }));
    follow();
}

void PaletteView::addHeader() {
    if (header_ || !palette_.header())
        return;
    header_ = makeControlView(*palette_.header(), context_, this);
    static_cast<QVBoxLayout*>(layout())->insertWidget(0, header_);
}

void PaletteView::follow() {
    addHeader();
    share();
}

/// A minimized group has the height of its captions, and the other one the rest.
void PaletteView::share() {
    if (following_)
        return;
    const int whole = splitter_->height();
    for (GroupView* const group : {top_, bottom_}) {
        const bool minimized = (group == top_ ? palette_.top() : palette_.bottom()).isMinimized();
        group->setMaximumHeight(minimized ? group->captionHeight() : QWIDGETSIZE_MAX);
    }
    const int top = static_cast<int>(std::lround(whole * palette_.topToWholeRatio()));
    splitter_->setSizes({top, whole - top});
}

void PaletteView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    share();
}

} // namespace drafta
