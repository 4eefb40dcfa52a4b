#include "embedded/qt/window/palette_view.h"

#include "embedded/qt/controls/label_texts.h"

#include <QBoxLayout>
#include <QPointer>
#include <QSplitter>

#include <cmath>

namespace drafta {

PaletteGroupView::PaletteGroupView(GroupControl& group, ViewContext& context, QWidget* parent)
    : CaptionedPages(
          {[this](int page) {
               perform([page](GroupControl& turned) {
                   turned.selectPage(page);
                   turned.setMinimized(false);
               });
           },
              [this] { perform([](GroupControl& folded) { folded.setMinimized(!folded.isMinimized()); }); }},
          parent),
      group_(group), context_(context), subscription_(group_.changed.subscribe([this] { follow(); })) {
    follow();
}

/// The view may be gone when the work's turn comes, and its group too.
void PaletteGroupView::perform(std::function<void(GroupControl&)> gesture) {
    context_.perform([view = QPointer<PaletteGroupView>(this), gesture = std::move(gesture)] {
        if (!view)
            return;
        gesture(view->group_);
        if (view)
            view->follow();
    });
}

void PaletteGroupView::follow() {
    for (auto at = static_cast<std::size_t>(count()); at < group_.pages().size(); ++at) {
        const GroupControl::Page& page = group_.pages()[at];
        addPage(asWidgetLabel(page.caption), *makeControlView(*page.content, context_, this));
    }
    showCaptions(group_.pages().size() > 1 || group_.isMinimized());
    show(group_.selectedPage(), group_.isMinimized());
    setVisible(!group_.pages().empty());
}

PaletteView::PaletteView(Palette& palette, ViewContext& context, QWidget* parent)
    : QWidget(parent), palette_(palette), context_(context), splitter_(new QSplitter(Qt::Vertical)),
      top_(new PaletteGroupView(palette.top(), context, nullptr)),
      bottom_(new PaletteGroupView(palette.bottom(), context, nullptr)) {
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

/// A minimized group takes the height of its captions, and the other one the rest.
void PaletteView::share() {
    if (following_)
        return;
    const int whole = splitter_->height();
    const int top = static_cast<int>(std::lround(whole * palette_.topToWholeRatio()));
    splitter_->setSizes({top, whole - top});
}

void PaletteView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    share();
}

} // namespace drafta
