#include "embedded/qt/dialogs/dialog_window.h"

#include "embedded/qt/controls/control_link.h"
#include "embedded/qt/controls/control_views.h"
#include "embedded/qt/controls/label_texts.h"
#include "embedded/qt/dialogs/kept_size.h"
#include "embedded/qt/dialogs/scrolled_content.h"
#include "embedded/qt/look/theme.h"
#include "embedded/qt/qt_text.h"
#include "toolkit/property_sheet.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QPointer>
#include <QPushButton>
#include <QShortcut>
#include <QTabWidget>
#include <QVBoxLayout>
#include <algorithm>

namespace drafta {

namespace {

constexpr int lettersOfPath = 84;       // with the name in front of it
constexpr double partForContent = 0.75; // of the screen; the rest is for buttons and the window's frame

QDialogButtonBox::ButtonRole roleOf(const ryv::Button& button) {
    if (button.id() == ryv::Dialog::idOk)
        return QDialogButtonBox::AcceptRole;
    if (button.id() == ryv::Dialog::idCancel)
        return QDialogButtonBox::RejectRole;
    return button.name() == u"help" ? QDialogButtonBox::HelpRole : QDialogButtonBox::ActionRole;
}

bool canHoldKeyboard(const ryv::Control& control) {
    if (!control.isUsable() || control.kind() == ryv::ControlKind::label ||
        control.kind() == ryv::ControlKind::button)
        return false;
    const auto* const field = dynamic_cast<const ryv::TextField*>(&control);
    return !field || !field->isReadOnly();
}

/// The keyboard scrolls it.
bool isLongText(const ryv::Control& control) {
    const auto* const field = dynamic_cast<const ryv::TextField*>(&control);
    return field && field->isUsable() && field->isReadOnly() && field->isMultiLine();
}

} // namespace

DialogWindow::DialogWindow(
    ryv::Dialog& dialog, const ViewContext& context, const WindowSizes& sizes, QWidget* parent)
    : QDialog(parent), dialog_(dialog), sheet_(dynamic_cast<ryv::PropertySheet*>(&dialog)), outer_(context),
      sizes_(sizes), context_(context),
      rearrangements_(dialog.rearranged.subscribe([this] { takeArrangement(); })),
      end_(dialog.ended.subscribe([this] { loop_.exit(); })) {
    context_.perform = [this](const std::function<void()>& work) { perform(work); };
    setObjectName(toQt(dialog.name()));
    setModal(true);
    build();
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { noteFocus(now); });
}

/// Views and their signals end while the members that they reach are there.
DialogWindow::~DialogWindow() {
    hide();
    disconnect(qApp, nullptr, this, nullptr);
}

void DialogWindow::build() {
    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins(metrics::margin, metrics::margin, metrics::margin, metrics::margin);
    rows->setSpacing(metrics::margin);
    rows->addWidget(new ScrolledContent(makeContent(), partForContent, this), 1);
    addButtons(*rows);
    setMinimumWidth(fontMetrics().averageCharWidth() * 44);
    takeArrangement();
}

QWidget* DialogWindow::makeContent() {
    auto* const content = new QWidget(this);
    auto* const rows = new QVBoxLayout(content);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(metrics::margin);
    const bool anyTall = addPanels(dialog_.panels(), context_, views_, *rows, content);
    if (sheet_ && !sheet_->pages().empty())
        addPages(*rows, *sheet_);
    else if (!anyTall)
        rows->addStretch(1);
    return content;
}

void DialogWindow::addPages(QVBoxLayout& rows, ryv::PropertySheet& sheet) {
    pages_ = new QTabWidget(this);
    for (const ryv::PropertySheet::Page& page : sheet.pages()) {
        auto* const content = new QWidget(pages_);
        auto* const inner = new QVBoxLayout(content);
        inner->setContentsMargins(metrics::margin, metrics::margin, metrics::margin, metrics::margin);
        inner->setSpacing(metrics::margin);
        if (!addPanels(page.panels, context_, views_, *inner, content))
            inner->addStretch(1);
        pages_->addTab(content, asWidgetLabel(page.title));
    }
    connect(pages_, &QTabWidget::currentChanged, this, [this](int page) {
        if (page != sheet_->activePage())
            context_.perform([this, page] { sheet_->turnTo(page); });
    });
    addTurning(QKeySequence::NextChild, 1);
    addTurning(QKeySequence::PreviousChild, -1);
    addTurning(Qt::CTRL | Qt::Key_PageDown, 1);
    addTurning(Qt::CTRL | Qt::Key_PageUp, -1);
    rows.addWidget(pages_, 1);
}

/// From wherever the keyboard is in the sheet.
void DialogWindow::addTurning(const QKeySequence& keys, int step) {
    auto* const shortcut = new QShortcut(keys, this);
    connect(shortcut, &QShortcut::activated, this, [this, step] {
        const int count = pages_->count();
        pages_->setCurrentIndex((pages_->currentIndex() + count + step) % count);
    });
}

void DialogWindow::addButtons(QVBoxLayout& rows) {
    auto* const box = new QDialogButtonBox(this);
    for (const auto& button : dialog_.buttons()) {
        const int id = button->id();
        QWidget* const view = makeButtonView(*button, context_, box, [this, id] { return mayPress(id); });
        views_[id] = view;
        box->addButton(static_cast<QPushButton*>(view), roleOf(*button));
    }
    rows.addWidget(box);
}

/// What a gesture throws must not fly through the toolkit's own event handling.
void DialogWindow::perform(const std::function<void()>& work) {
    outer_.perform([self = QPointer<DialogWindow>(this), work] {
        try {
            if (self)
                work();
        } catch (...) {
            if (!self)
                return;
            self->failure_ = std::current_exception();
            self->breakOff();
        }
    });
}

void DialogWindow::run() {
    const KeptSize kept(*this, sizes_, usualSize());
    show();
    takeDefaultButton(); // the button box has chosen one of its own
    if (dialog_.focus() != 0)
        takeFocus();
    else
        focusFirst();
    while (dialog_.isOpen() && !brokenOff_)
        loop_.exec();
    hide();
    if (failure_)
        std::rethrow_exception(std::exchange(failure_, nullptr));
}

void DialogWindow::breakOff() {
    brokenOff_ = true;
    loop_.exit();
}

void DialogWindow::reject() {
    context_.perform([this] { dialog_.pressCancel(); });
}

void DialogWindow::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::HelpContents) && !dialog_.helpTopic().empty() && context_.showHelp) {
        context_.showHelp(dialog_.helpTopic());
        return;
    }
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
        QDialog::keyPressEvent(event);
        return;
    }
    auto* const button = qobject_cast<QPushButton*>(focusWidget());
    if (button && button->isEnabled())
        button->click();
    else
        pressDefault();
}

void DialogWindow::pressDefault() {
    context_.perform([this] {
        if (mayPress(dialog_.defaultButton()))
            dialog_.pressDefault();
    });
}

/// What is on the screen but not in the model would be lost unseen.
bool DialogWindow::mayPress(int button) {
    if (button != ryv::Dialog::idOk && button != dialog_.defaultButton())
        return true;
    for (ryv::Control* const control : dialog_.controls()) {
        const auto view = views_.find(control->id());
        if (view == views_.end() || !isRefused(*view->second) || !control->isUsable())
            continue;
        dialog_.setFocus(control->id());
        QApplication::beep();
        return false;
    }
    return true;
}

void DialogWindow::takeArrangement() {
    setWindowTitle(toQt(dialog_.title()));
    takePage();
    takeDefaultButton();
    takeFocus();
}

void DialogWindow::takePage() {
    if (pages_ && sheet_->activePage() >= 0)
        pages_->setCurrentIndex(sheet_->activePage());
}

void DialogWindow::takeDefaultButton() {
    for (const auto& [id, view] : views_)
        if (auto* const button = qobject_cast<QPushButton*>(view); button && button->isDefault())
            button->setDefault(false);
    const auto found = views_.find(dialog_.defaultButton());
    if (auto* const button = found != views_.end() ? qobject_cast<QPushButton*>(found->second) : nullptr)
        button->setDefault(true);
}

void DialogWindow::takeFocus() {
    const auto found = views_.find(dialog_.focus());
    if (found == views_.end())
        return;
    QWidget* const view = found->second;
    const QWidget* const has = focusWidget();
    if (!has || (has != view && !view->isAncestorOf(has)))
        view->setFocus(Qt::TabFocusReason); // selects the text, which is to be typed anew
}

/// The model knows where the keyboard is, so that telling it something else moves it.
void DialogWindow::noteFocus(QWidget* widget) {
    if (!widget || !isAncestorOf(widget) || !dialog_.isOpen())
        return;
    for (const QWidget* at = widget; at && at != this; at = at->parentWidget()) {
        const QVariant id = at->property(controlIdProperty);
        const auto found = id.isValid() ? views_.find(id.toInt()) : views_.end();
        if (found == views_.end() || found->second != at)
            continue;
        if (dialog_.focus() != found->first)
            dialog_.setFocus(found->first);
        return;
    }
}

/// A field rather than a text that is read, and that rather than a button; the default button where there is
/// neither.
void DialogWindow::focusFirst() {
    if (focusFirst(canHoldKeyboard) || focusFirst(isLongText))
        return;
    const auto button = views_.find(dialog_.defaultButton());
    if (button != views_.end())
        button->second->setFocus(Qt::TabFocusReason);
}

bool DialogWindow::focusFirst(bool (*takes)(const ryv::Control&)) {
    for (const ryv::Control* const control : dialog_.controls()) {
        const auto found = views_.find(control->id());
        if (found == views_.end() || !takes(*control) || !found->second->isVisible())
            continue;
        found->second->setFocus(Qt::TabFocusReason);
        return true;
    }
    return false;
}

/// Wide enough for a path, as far as there are fields to hold one.
QSize DialogWindow::usualSize() const {
    const QSize size = sizeHint().expandedTo(minimumSizeHint());
    const auto& controls = dialog_.controls();
    const bool hasField = std::any_of(controls.begin(), controls.end(),
        [](const ryv::Control* control) { return control->kind() == ryv::ControlKind::text; });
    return hasField ? size.expandedTo({fontMetrics().averageCharWidth() * lettersOfPath, 0}) : size;
}

} // namespace drafta
