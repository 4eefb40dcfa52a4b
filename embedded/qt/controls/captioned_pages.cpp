#include "embedded/qt/controls/captioned_pages.h"

#include "embedded/qt/look/icons.h"
#include "embedded/qt/look/theme.h"

#include <QHBoxLayout>
#include <QScopedValueRollback>
#include <QStackedWidget>
#include <QTabBar>
#include <QToolButton>

namespace drafta {

CaptionedPages::CaptionedPages(Hooks hooks, QWidget* parent)
    : QWidget(parent), hooks_(std::move(hooks)), head_(new QWidget), captions_(new QTabBar),
      fold_(new QToolButton), pages_(new QStackedWidget) {
    captions_->setDrawBase(false);
    captions_->setExpanding(false);
    captions_->setUsesScrollButtons(true);
    fold_->setAutoRaise(true);
    arrange();
    setFocusProxy(captions_);
    // The click says it of a caption that is selected already, the change of one that keys lead to.
    connect(captions_, &QTabBar::tabBarClicked, this, [this](int page) {
        if (page >= 0)
            hooks_.turn(page);
    });
    connect(captions_, &QTabBar::currentChanged, this, [this](int page) {
        if (!following_ && page >= 0 && page != pages_->currentIndex())
            hooks_.turn(page);
    });
    connect(fold_, &QToolButton::clicked, this, [this] { hooks_.fold(); });
}

/// In the order in which Tab goes through them.
void CaptionedPages::arrange() {
    auto* const head = new QHBoxLayout(head_);
    head->setContentsMargins(0, 0, metrics::gap / 2, 0);
    head->setSpacing(0);
    head->addWidget(captions_, 1);
    head->addWidget(fold_);
    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    rows->addWidget(head_);
    rows->addWidget(pages_, 1);
}

int CaptionedPages::count() const {
    return pages_->count();
}

void CaptionedPages::addPage(const QString& caption, QWidget& page) {
    const QScopedValueRollback<bool> guard(following_, true);
    captions_->addTab(caption);
    pages_->addWidget(&page);
}

void CaptionedPages::show(int page, bool minimized) {
    const QScopedValueRollback<bool> guard(following_, true);
    captions_->setCurrentIndex(page);
    pages_->setCurrentIndex(page);
    pages_->setVisible(!minimized);
    setMaximumHeight(minimized ? head_->sizeHint().height() : QWIDGETSIZE_MAX);
    fold_->setIcon(themeIcon(minimized ? "restore" : "minimize"));
    fold_->setToolTip(minimized ? tr("Show the page") : tr("Show the captions only"));
    fold_->setAccessibleName(fold_->toolTip());
}

void CaptionedPages::showCaptions(bool shown) {
    head_->setVisible(shown);
    setFocusProxy(shown ? captions_ : nullptr); // Tab would stop at captions that nobody sees
}

} // namespace drafta
