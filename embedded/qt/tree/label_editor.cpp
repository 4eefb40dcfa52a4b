#include "embedded/qt/tree/label_editor.h"

#include "embedded/qt/look/theme.h"
#include "embedded/qt/qt_text.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QRegularExpression>
#include <utility>

namespace drafta {

namespace {

/// How much of a text is a name: for that of a file all before the ending, else everything.
int nameLength(const QString& text) {
    const QRegularExpression ending(QStringLiteral("[^.]\\.([A-Za-z][A-Za-z0-9]{1,3})$"));
    const auto match = ending.match(text);
    return static_cast<int>(match.hasMatch() ? match.capturedStart(1) - 1 : text.size());
}

QLabel* makeProblemLabel(QWidget* parent) {
    auto* const label = new QLabel(parent);
    const Theme& theme = currentTheme();
    QPalette palette = theme.palette;
    palette.setColor(QPalette::WindowText, theme.warning);
    palette.setColor(QPalette::Window, theme.noticeBase);
    label->setPalette(palette);
    label->setForegroundRole(QPalette::WindowText); // not those that rows have
    label->setBackgroundRole(QPalette::Window);
    label->setAutoFillBackground(true);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setMargin(metrics::rowPadding);
    label->setFrameShape(QFrame::Box);
    label->setObjectName(QStringLiteral("labelProblem"));
    label->hide();
    return label;
}

} // namespace

LabelEditor::LabelEditor(const QString& text, Hooks hooks, QWidget* parent)
    : QLineEdit(text, parent), hooks_(std::move(hooks)), problem_(makeProblemLabel(parent)) {
    setObjectName(QStringLiteral("labelEditor"));
    setAccessibleName(tr("Name"));
    setSelection(0, nameLength(text));
    connect(this, &QLineEdit::textChanged, this, [this] { showProblem(); });
    showProblem(); // of a text that was refused before
}

void LabelEditor::place(const QRect& place) {
    setGeometry(place);
    placeProblem();
}

void LabelEditor::dismiss() {
    hooks_ = {};
    delete std::exchange(problem_, nullptr);
    hide();
    deleteLater();
}

/// No shortcut of the window is to take what is being typed.
bool LabelEditor::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride) {
        event->accept();
        return true;
    }
    return QLineEdit::event(event);
}

void LabelEditor::keyPressEvent(QKeyEvent* event) {
    event->accept();
    switch (event->key()) {
    case Qt::Key_Escape:
        return finish(false);
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return finish(true);
    case Qt::Key_Up:
    case Qt::Key_Down:
        return;
    default:
        QLineEdit::keyPressEvent(event);
        event->accept();
    }
}

/// The field's own menu takes the keyboard for a while.
void LabelEditor::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    if (event->reason() != Qt::PopupFocusReason)
        finish(true);
}

void LabelEditor::finish(bool accepted) {
    if (const auto finish = std::exchange(hooks_.finish, nullptr))
        finish(accepted ? std::optional(fromQt(text())) : std::nullopt);
}

void LabelEditor::showProblem() {
    const QString problem = hooks_.problem ? hooks_.problem(text()) : QString();
    setAccessibleDescription(problem);
    problem_->setText(problem);
    problem_->setVisible(!problem.isEmpty());
    placeProblem();
}

/// Below the field, above it where there is no room.
void LabelEditor::placeProblem() {
    if (!problem_ || problem_->isHidden())
        return;
    const int height = problem_->heightForWidth(width());
    const bool below = geometry().bottom() + 1 + height <= parentWidget()->height();
    problem_->setGeometry(x(), below ? geometry().bottom() + 1 : y() - height, width(), height);
    problem_->raise();
}

} // namespace drafta
