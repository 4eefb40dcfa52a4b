#include "embedded/qt/dialogs/progress_window.h"

#include "embedded/qt/look/theme.h"
#include "embedded/qt/qt_text.h"
#include "resources/language.h"
#include "toolkit/plain_text.h"

#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QEventLoop>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>
#include <QWindow>

namespace drafta {

namespace {
constexpr std::int64_t shownAfter = 500;  // milliseconds; shorter work would only flicker
constexpr std::int64_t answersAfter = 50; // between two looks at what the user does
constexpr int letters = 56;
constexpr const char* progressProperty = "showsProgress";
} // namespace

ProgressWindow::ProgressWindow(const ProgressSite& site, ryv::CString title, std::size_t count)
    : site_(site), model_(std::move(title), count), begun_(site.milliseconds()), answered_(begun_) {}

ProgressWindow::~ProgressWindow() {
    delete window_.data();
}

bool ProgressWindow::step(std::size_t done, ryv::CStringView item) {
    if (site_.hasQuit && site_.hasQuit())
        model_.cancel();
    const bool goesOn = model_.step(done, item);
    const std::int64_t now = site_.milliseconds();
    if (!window_ && now - begun_ < shownAfter)
        return goesOn;
    if (window_ && now - answered_ < answersAfter)
        return goesOn;
    if (!window_)
        open();
    answered_ = now;
    show();
    letAnswer();
    return !model_.isCancelled();
}

void ProgressWindow::open() {
    window_ = new QDialog(site_.parent ? site_.parent() : nullptr);
    window_->setWindowTitle(toQt(ryv::onOneLine(model_.title())));
    window_->setModal(true);
    window_->setProperty(progressProperty, true);
    auto* const rows = new QVBoxLayout(window_);
    rows->setContentsMargins(metrics::margin, metrics::margin, metrics::margin, metrics::margin);
    rows->setSpacing(metrics::gap);
    addTexts(*rows);
    bar_ = new QProgressBar(window_);
    bar_->setAccessibleName(window_->windowTitle());
    bar_->setRange(0, model_.count() == 0 ? 0 : 100);
    auto* const box = new QDialogButtonBox(window_);
    box->addButton(QDialog::tr("Cancel"), QDialogButtonBox::RejectRole);
    QObject::connect(box, &QDialogButtonBox::rejected, window_, &QDialog::reject);
    QObject::connect(window_, &QDialog::rejected, window_, [this, box] {
        model_.cancel();
        box->setEnabled(false);
    });
    rows->addWidget(bar_);
    rows->addWidget(box);
    rows->setSizeConstraint(QLayout::SetFixedSize);
    window_->show();
}

/// What is at work, and how many of all are done, with room for the last of them from the beginning.
void ProgressWindow::addTexts(QVBoxLayout& rows) {
    auto* const texts = new QHBoxLayout;
    texts->setSpacing(metrics::margin);
    item_ = new QLabel(window_);
    item_->setTextFormat(Qt::PlainText);
    item_->setFixedWidth(window_->fontMetrics().averageCharWidth() * letters);
    place_ = new QLabel(window_);
    place_->setFixedWidth(place_->fontMetrics().horizontalAdvance(placeAt(model_.count())));
    place_->setAlignment(Qt::AlignRight);
    texts->addWidget(item_);
    texts->addWidget(place_);
    rows.addLayout(texts);
}

/// Empty while nobody knows how many there are.
QString ProgressWindow::placeAt(std::size_t done) const {
    if (model_.count() == 0)
        return {};
    const QLocale locale(toQt(ryv::codeOf(ryv::language())));
    return QDialog::tr("%1 of %2")
        .arg(locale.toString(qulonglong(done)), locale.toString(qulonglong(model_.count())));
}

bool belongsToProgress(const QObject* receiver) {
    const QWidget* const front = QApplication::activeModalWidget();
    if (!front || !front->property(progressProperty).toBool())
        return false;
    const auto* const widget = qobject_cast<const QWidget*>(receiver);
    return widget ? widget->window() == front : receiver == front->windowHandle();
}

void ProgressWindow::show() {
    const QString item = toQt(ryv::onOneLine(model_.item()));
    item_->setText(item_->fontMetrics().elidedText(item, Qt::ElideMiddle, item_->width()));
    place_->setText(placeAt(model_.done()));
    bar_->setValue(model_.percent());
}

void ProgressWindow::letAnswer() {
    QEventLoop().processEvents(QEventLoop::ExcludeSocketNotifiers);
}

} // namespace drafta
