#include "embedded/qt/controls/control_link.h"
#include "embedded/qt/controls/control_views.h"
#include "embedded/qt/controls/label_texts.h"
#include "embedded/qt/look/icons.h"
#include "embedded/qt/look/theme.h"
#include "embedded/qt/qt_text.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QStackedWidget>
#include <QTabBar>
#include <QToolButton>

namespace drafta {

namespace {

class GroupView final : public QWidget {
public:
    GroupView(ryv::GroupControl& group, ViewContext& context, QWidget* parent)
        : QWidget(parent), group_(group), context_(context), captions_(new QTabBar(this)),
          fold_(new QToolButton(this)), pages_(new QStackedWidget(this)) {
        captions_->setDrawBase(false);
        captions_->setExpanding(false);
        captions_->setUsesScrollButtons(true);
        fold_->setAutoRaise(true);
        arrange();
        link_ = new ControlLink(*this, group, [this] { take(); });
        setFocusProxy(captions_);
        // The click says it of a caption that is selected already, the change of one that keys lead to.
        connect(captions_, &QTabBar::tabBarClicked, this, [this](int page) { click(page); });
        connect(captions_, &QTabBar::currentChanged, this, [this](int page) {
            if (!link_->isTaking() && page != group_.selectedPage())
                click(page);
        });
        connect(fold_, &QToolButton::clicked, this,
            [this] { link_->forward(context_, [this] { group_.setMinimized(!group_.isMinimized()); }); });
    }

protected:
    void changeEvent(QEvent* event) override {
        QWidget::changeEvent(event);
        if (event->type() == QEvent::PaletteChange && link_) // icons are of the theme's colour
            fold_->setIcon(themeIcon(group_.isMinimized() ? "restore" : "minimize"));
    }

private:
    void arrange() {
        auto* const rows = new QVBoxLayout(this);
        rows->setContentsMargins(0, 0, 0, 0);
        rows->setSpacing(0);
        auto* const head = new QHBoxLayout;
        head->setContentsMargins(0, 0, metrics::gap / 2, 0);
        head->addWidget(captions_, 1);
        head->addWidget(fold_);
        rows->addLayout(head);
        rows->addWidget(pages_, 1);
    }

    void click(int page) {
        if (page >= 0)
            link_->forward(context_, [this, page] { group_.click(page); });
    }

    void take() {
        for (int page = pages_->count(); page < static_cast<int>(group_.pages().size()); ++page)
            addPage(group_.pages()[static_cast<std::size_t>(page)]);
        captions_->setCurrentIndex(group_.selectedPage());
        pages_->setCurrentIndex(group_.selectedPage());
        const bool minimized = group_.isMinimized();
        pages_->setVisible(!minimized);
        // Whoever gives it a place gives the room that it leaves to others.
        setMaximumHeight(minimized ? captions_->sizeHint().height() : QWIDGETSIZE_MAX);
        fold_->setIcon(themeIcon(minimized ? "restore" : "minimize"));
        const QString does =
            minimized ? QStringLiteral("Show the pane") : QStringLiteral("Minimize the pane");
        fold_->setToolTip(does);
        fold_->setAccessibleName(does);
    }

    void addPage(const ryv::GroupControl::Page& page) {
        captions_->addTab(asWidgetLabel(page.caption));
        pages_->addWidget(makeControlView(*page.content, context_, pages_));
    }

    ryv::GroupControl& group_;
    ViewContext& context_;
    QTabBar* captions_;
    QToolButton* fold_;
    QStackedWidget* pages_;
    ControlLink* link_ = nullptr;
};

} // namespace

QWidget* makeGroupView(ryv::GroupControl& group, ViewContext& context, QWidget* parent) {
    return new GroupView(group, context, parent);
}

} // namespace drafta
