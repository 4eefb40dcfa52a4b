#include "embedded/qt/window/command_pane.h"

#include "embedded/qt/look/theme.h"

#include <QBoxLayout>
#include <QCoreApplication>
#include <QFontDatabase>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTextBlock>

namespace drafta {

namespace {

constexpr int mostLines = 10000; // of what was printed; older ones go
constexpr qsizetype mostRemembered = 500;

} // namespace

CommandPane::CommandPane(QWidget* parent)
    : QWidget(parent), output_(new QPlainTextEdit), prompt_(new QLabel), input_(new QLineEdit) {
    output_->setReadOnly(true);
    output_->setMaximumBlockCount(mostLines);
    output_->setFrameShape(QFrame::NoFrame);
    output_->setAccessibleName(tr("Command history"));
    output_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    output_->setTabChangesFocus(true);
    input_->setFrame(false);
    input_->setAccessibleName(tr("Command line"));
    input_->installEventFilter(this);
    prompt_->setBuddy(input_);

    auto* const line = new QHBoxLayout;
    line->setContentsMargins(metrics::gap, 0, metrics::gap, 0);
    line->addWidget(prompt_);
    line->addWidget(input_, 1);
    auto* const all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->setSpacing(0);
    all->addWidget(output_, 1);
    all->addLayout(line);
    connect(input_, &QLineEdit::returnPressed, this, &CommandPane::enter);
    setFocusProxy(input_);
    restyle();
}

void CommandPane::restyle() {
    const QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    for (QWidget* const each :
        {static_cast<QWidget*>(output_), static_cast<QWidget*>(prompt_), static_cast<QWidget*>(input_)})
        each->setFont(fixed);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);
    input_->setMinimumHeight(input_->fontMetrics().height() + 2 * metrics::gap);
}

void CommandPane::changeEvent(QEvent* event) {
    if (event->type() == QEvent::FontChange)
        input_->setMinimumHeight(input_->fontMetrics().height() + 2 * metrics::gap);
    QWidget::changeEvent(event);
}

void CommandPane::print(const QString& text) {
    append(text, false);
}

void CommandPane::printProblem(const QString& text) {
    append(text, true);
}

/// Stays where the person has scrolled to.
void CommandPane::append(const QString& text, bool isProblem) {
    QScrollBar* const bar = output_->verticalScrollBar();
    const bool follows = bar->value() == bar->maximum();
    QTextCursor cursor(output_->document());
    cursor.movePosition(QTextCursor::End);
    QTextCharFormat format;
    if (isProblem) // all else follows the theme by itself
        format.setForeground(currentTheme().warning);
    const bool atStart = cursor.atBlockStart();
    QString shown = text;
    if (atStart && shown.startsWith(u'\n') && output_->document()->isEmpty())
        shown.remove(0, 1);
    cursor.insertText(shown, format);
    if (follows)
        bar->setValue(bar->maximum());
}

void CommandPane::setPrompt(const QString& prompt, bool isQuestion) {
    prompt_->setText(prompt.trimmed());
    input_->setPlaceholderText(
        isQuestion ? tr("Type the answer; Esc cancels") : tr("Type a command, or LISP in parentheses"));
}

QString CommandPane::printed() const {
    return output_->toPlainText();
}

void CommandPane::takeKeyboard(const QString& typed) {
    input_->setFocus(Qt::OtherFocusReason);
    if (!typed.isEmpty())
        input_->insert(typed);
}

void CommandPane::enter() {
    const QString line = input_->text();
    input_->clear();
    if (!line.trimmed().isEmpty() && (history_.isEmpty() || history_.back() != line))
        history_ << line;
    if (history_.size() > mostRemembered)
        history_.removeFirst();
    recalled_ = history_.size();
    if (!output_->document()->lastBlock().text().isEmpty())
        print(QStringLiteral("\n"));
    print(prompt_->text() + u' ' + line + u'\n');
    output_->verticalScrollBar()->setValue(output_->verticalScrollBar()->maximum());
    emit entered(line);
}

void CommandPane::recall(int step) {
    const qsizetype wanted = recalled_ + step;
    if (wanted < 0 || wanted > history_.size())
        return;
    if (recalled_ == history_.size())
        unfinished_ = input_->text();
    recalled_ = wanted;
    input_->setText(wanted == history_.size() ? unfinished_ : history_[wanted]);
}

bool CommandPane::eventFilter(QObject* watched, QEvent* event) {
    if (watched != input_ || event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    switch (static_cast<QKeyEvent*>(event)->key()) {
    case Qt::Key_Up:
        recall(-1);
        return true;
    case Qt::Key_Down:
        recall(1);
        return true;
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        return QCoreApplication::sendEvent(output_, event);
    case Qt::Key_Escape:
        input_->clear();
        recalled_ = history_.size();
        emit cancelled();
        return true;
    default:
        return false;
    }
}

} // namespace drafta
