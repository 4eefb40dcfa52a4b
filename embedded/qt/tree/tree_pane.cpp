#include "embedded/qt/tree/tree_pane.h"

#include "embedded/qt/look/icons.h"
#include "embedded/qt/look/theme.h"
#include "embedded/qt/qt_text.h"
#include "embedded/qt/tree/tree_view.h"
#include "embedded/qt/tree/tree_views.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace drafta {

TreePane::TreePane(ryv::TreeControl& control, ViewContext& context, QWidget* parent)
    : QWidget(parent), control_(control), filter_(new QLineEdit(this)),
      tree_(new TreeView(control, context, this)) {
    setUpFilter();
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(metrics::gap / 2);
    layout->addWidget(filter_);
    layout->addWidget(tree_, 1);
    setTabOrder(filter_, tree_);
    tree_->find = [this] {
        filter_->setFocus(Qt::ShortcutFocusReason);
        filter_->selectAll();
    };
    control_.attach(*this);
    reset();
}

TreePane::~TreePane() {
    control_.detach(*this);
}

void TreePane::setUpFilter() {
    filter_->setPlaceholderText(tr("Find drawings"));
    filter_->setAccessibleName(tr("Find drawings"));
    filter_->setClearButtonEnabled(true);
    filter_->addAction(themeIcon("search"), QLineEdit::LeadingPosition);
    filter_->installEventFilter(this);
    connect(filter_, &QLineEdit::textChanged, this,
        [this](const QString& text) { control_.setFilter(fromQt(text)); });
}

bool TreePane::eventFilter(QObject* watched, QEvent* event) {
    if (watched != filter_ || event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    return filterKey(static_cast<QKeyEvent*>(event)->key());
}

/// Whether the key is of use here.
bool TreePane::filterKey(int key) {
    switch (key) {
    case Qt::Key_Down:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        goToRows();
        return true;
    case Qt::Key_Escape:
        if (filter_->text().isEmpty())
            tree_->setFocus(Qt::OtherFocusReason);
        filter_->clear();
        return true;
    default:
        return false;
    }
}

void TreePane::goToRows() {
    tree_->setFocus(Qt::OtherFocusReason);
    if (!control_.focus())
        control_.key(ryv::TreeKeyCode::home);
}

/// The filter may have been set by the program.
void TreePane::reset() {
    if (filter_->text() != toQt(control_.filter())) {
        const QSignalBlocker quiet(filter_);
        filter_->setText(toQt(control_.filter()));
    }
    countLater();
}

void TreePane::countLater() {
    if (std::exchange(counting_, true))
        return;
    QMetaObject::invokeMethod(
        this, [this] { tellCount(); }, Qt::QueuedConnection);
}

/// For those who do not see it.
void TreePane::tellCount() {
    counting_ = false;
    if (control_.filter().empty())
        return filter_->setAccessibleDescription({});
    int count = 0;
    for (const ryv::TreeItem* at = control_.shownChild(nullptr, 0); at;
         at = nextInTree(*at, nullptr, ryv::TreeCount::shown))
        count += at->matches() ? 1 : 0;
    filter_->setAccessibleDescription(count == 0   ? tr("Nothing matches")
                                      : count == 1 ? tr("1 match")
                                                   : tr("%1 matches").arg(count));
}

QWidget* makeTreePane(ryv::TreeControl& control, ViewContext& context, QWidget* parent) {
    return new TreePane(control, context, parent);
}

} // namespace drafta
