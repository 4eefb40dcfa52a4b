#include "embedded/qt/dialogs/question_window.h"

#include "embedded/qt/dialogs/scrolled_content.h"
#include "embedded/qt/dialogs/wrapped_text.h"
#include "embedded/qt/look/theme.h"

#include <QCommandLinkButton>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QStyle>
#include <QVBoxLayout>

namespace drafta {

namespace {

constexpr int leastChars = 34;
constexpr int mostChars = 68;
constexpr int iconSize = 32;
// What may be taken of the screen's height; the rest is for buttons and the window's frame.
constexpr double partForTexts = 0.4;
constexpr double partForLinks = 0.35;

QIcon iconOf(const QWidget& widget, ryv::MessageIcon icon) {
    switch (icon) {
    case ryv::MessageIcon::none:
        break;
    case ryv::MessageIcon::information:
        return widget.style()->standardIcon(QStyle::SP_MessageBoxInformation);
    case ryv::MessageIcon::question:
        return widget.style()->standardIcon(QStyle::SP_MessageBoxQuestion);
    case ryv::MessageIcon::warning:
        return widget.style()->standardIcon(QStyle::SP_MessageBoxWarning);
    case ryv::MessageIcon::error:
        return widget.style()->standardIcon(QStyle::SP_MessageBoxCritical);
    }
    return {};
}

/// `part` is what it may take of the screen's height.
WrappedText* makeText(const QString& text, QWidget* parent, bool large, double part) {
    auto* const view = new WrappedText(text, parent);
    QFont font = parent->font();
    if (large) {
        font.setPointSizeF(font.pointSizeF() * 1.3);
        view->setFont(font);
    }
    const int letter = parent->fontMetrics().averageCharWidth();
    const QScreen* const screen = parent->screen();
    const int height = screen ? screen->availableSize().height() : 1000;
    view->fit(leastChars * letter, mostChars * letter, static_cast<int>(height * part));
    return view;
}

} // namespace

QuestionWindow::QuestionWindow(const QuestionContent& content, QWidget* parent)
    : QDialog(parent), answer_(content.closed) {
    setWindowTitle(content.title);
    setAccessibleDescription(content.instruction + u' ' + content.text);
    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins(metrics::margin, metrics::margin, metrics::margin, metrics::margin);
    rows->setSpacing(metrics::margin);
    rows->setSizeConstraint(QLayout::SetFixedSize);
    addTexts(content, *rows);
    addButtons(content, *rows);
}

void QuestionWindow::addTexts(const QuestionContent& content, QVBoxLayout& rows) {
    auto* const head = new QHBoxLayout;
    head->setSpacing(metrics::margin);
    if (const QIcon icon = iconOf(*this, content.icon); !icon.isNull()) {
        auto* const picture = new QLabel(this);
        picture->setPixmap(icon.pixmap(QSize(iconSize, iconSize), devicePixelRatioF()));
        head->addWidget(picture, 0, Qt::AlignTop);
    }
    auto* const texts = new QVBoxLayout;
    texts->setSpacing(metrics::gap);
    const bool both = !content.instruction.isEmpty() && !content.text.isEmpty();
    const double part = both ? partForTexts / 2 : partForTexts;
    if (!content.instruction.isEmpty())
        texts->addWidget(makeText(content.instruction, this, true, part), 0, Qt::AlignLeft);
    if (!content.text.isEmpty())
        texts->addWidget(makeText(content.text, this, false, part), 0, Qt::AlignLeft);
    head->addLayout(texts, 1);
    texts->addStretch(1);
    rows.addLayout(head);
}

void QuestionWindow::addButtons(const QuestionContent& content, QVBoxLayout& rows) {
    auto* const box = new QDialogButtonBox;
    auto* const linkPane = new QWidget(this);
    auto* const links = new QVBoxLayout(linkPane);
    links->setContentsMargins(0, 0, 0, 0);
    links->setSpacing(2);
    for (const QuestionButton& button : content.buttons) {
        QPushButton* const view = makeButton(button);
        if (button.isLink)
            links->addWidget(view);
        else
            box->addButton(view, button.role);
        take(*view, button, button.id == content.defaultButton);
    }
    if (links->isEmpty())
        delete linkPane;
    else
        rows.addWidget(new ScrolledContent(linkPane, partForLinks, this));
    rows.addWidget(box);
    box->setVisible(!box->buttons().isEmpty());
}

QPushButton* QuestionWindow::makeButton(const QuestionButton& button) {
    if (!button.isLink)
        return new QPushButton(button.text, this);
    const qsizetype end = button.text.indexOf(u'\n');
    auto* const link = new QCommandLinkButton(button.text.left(end), this);
    if (end >= 0)
        link->setDescription(button.text.mid(end + 1));
    return link;
}

void QuestionWindow::take(QPushButton& view, const QuestionButton& button, bool isDefault) {
    view.setAutoDefault(false);
    connect(&view, &QPushButton::clicked, this, [this, id = button.id] {
        answer_ = id;
        accept();
    });
    if (isDefault)
        view.setDefault(true);
    if (isDefault || !first_)
        first_ = &view;
}

int QuestionWindow::ask() {
    if (first_)
        first_->setFocus(Qt::TabFocusReason); // which marks it
    exec();
    return answer_;
}

void QuestionWindow::keyPressEvent(QKeyEvent* event) {
    const bool enters = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    auto* const button = enters ? qobject_cast<QPushButton*>(focusWidget()) : nullptr;
    if (button)
        button->click();
    else
        QDialog::keyPressEvent(event);
}

} // namespace drafta
