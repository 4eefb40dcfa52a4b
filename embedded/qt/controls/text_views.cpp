#include "embedded/qt/controls/control_link.h"
#include "embedded/qt/controls/control_views.h"
#include "embedded/qt/look/theme.h"
#include "embedded/qt/qt_text.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScreen>
#include <QScrollBar>
#include <QTextBlock>
#include <QToolTip>
#include <climits>
#include <memory>
#include <optional>

namespace drafta {

namespace {

constexpr const char* refusedProperty = "refused";

void setRefused(QWidget& view, bool refused) {
    if (isRefused(view) == refused)
        return;
    view.setProperty(refusedProperty, refused);
    QPalette palette;
    if (refused)
        palette.setColor(QPalette::Text, currentTheme().warning);
    view.setPalette(palette);
    if (refused)
        QToolTip::showText(view.mapToGlobal(QPoint(0, view.height())),
            QObject::tr("The field does not take this text."), &view);
    else
        QToolTip::hideText();
}

/// How a text that is only read scrolls; nothing for keys that do something else.
std::optional<QAbstractSlider::SliderAction> scrollingOf(const QKeyEvent& event) {
    if (event.modifiers() & ~Qt::KeypadModifier)
        return std::nullopt;
    switch (event.key()) {
    case Qt::Key_Up:
        return QAbstractSlider::SliderSingleStepSub;
    case Qt::Key_Down:
        return QAbstractSlider::SliderSingleStepAdd;
    case Qt::Key_PageUp:
        return QAbstractSlider::SliderPageStepSub;
    case Qt::Key_PageDown:
        return QAbstractSlider::SliderPageStepAdd;
    case Qt::Key_Home:
        return QAbstractSlider::SliderToMinimum;
    case Qt::Key_End:
        return QAbstractSlider::SliderToMaximum;
    default:
        return std::nullopt;
    }
}

/// Many lines. As tall as a few of them unless there is room; a text that is only read is as tall as it is
/// long, up to a part of the screen.
class TextArea final : public QPlainTextEdit {
public:
    explicit TextArea(QWidget* parent) : QPlainTextEdit(parent) {
        setTabChangesFocus(true);
        setMinimumHeight(heightOf(2));
    }
    QSize sizeHint() const override {
        const int height = isReadOnly() ? std::min(heightOf(lineCount()), mostHeight()) : heightOf(5);
        return {fontMetrics().averageCharWidth() * 50, height};
    }
    QSize minimumSizeHint() const override { return {fontMetrics().averageCharWidth() * 16, heightOf(2)}; }

    /// What is only read looks like a part of the pane.
    void setQuiet(bool quiet) {
        setReadOnly(quiet);
        setFrameShape(quiet ? QFrame::NoFrame : QFrame::StyledPanel);
        viewport()->setAutoFillBackground(!quiet);
        document()->setDocumentMargin(quiet ? metrics::gap / 2 : 4);
        const auto keys = Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard;
        setTextInteractionFlags(quiet ? keys : Qt::TextEditorInteraction);
    }

protected:
    /// The place of the cursor is nobody's business in a text that is only read.
    void keyPressEvent(QKeyEvent* event) override {
        QScrollBar* const bar = verticalScrollBar();
        const auto scrolling = isReadOnly() && bar->maximum() > 0 ? scrollingOf(*event) : std::nullopt;
        if (scrolling)
            bar->triggerAction(*scrolling);
        else
            QPlainTextEdit::keyPressEvent(event);
    }

private:
    static constexpr int lettersOfLine = 78; // in a dialog that is wide enough for a path
    static constexpr double partOfScreen = 0.6;

    int mostHeight() const {
        const QScreen* const on = screen();
        return on ? static_cast<int>(on->availableSize().height() * partOfScreen) : heightOf(20);
    }
    /// Lines that break count as several; counting ends where the screen does.
    int lineCount() const {
        const int width = fontMetrics().averageCharWidth() * lettersOfLine;
        const int enough = mostHeight() / fontMetrics().lineSpacing() + 1;
        int count = 1; // an empty one behind the text, so that its end is seen to be the end
        for (QTextBlock line = document()->begin(); line.isValid() && count < enough; line = line.next())
            count += 1 + fontMetrics().horizontalAdvance(line.text()) / width;
        return std::max(count, 3);
    }
    int heightOf(int lines) const {
        return lines * fontMetrics().lineSpacing() +
               2 * (frameWidth() + static_cast<int>(document()->documentMargin()));
    }
};

/// What both widgets for texts have in common: the field's text goes into the widget when it is another than
/// the one known, so that a text that was refused, or the place of the cursor, is not lost over nothing.
class TextKeeper {
public:
    explicit TextKeeper(ryv::TextField& field) : field_(field) {}

    bool hasNews() const { return !known_ || *known_ != field_.text(); }
    const ryv::CString& text() {
        known_ = field_.text();
        return *known_;
    }

    /// The user's text, which the field takes or not.
    void type(QWidget& view, const QString& typed) {
        const ryv::CString text = fromQt(typed);
        const bool taken = text == field_.text() || field_.type(text);
        if (taken || !field_.isUsable() || field_.isReadOnly())
            return;
        setRefused(view, true);
    }

private:
    ryv::TextField& field_;
    std::optional<ryv::CString> known_;
};

class LineView final : public QLineEdit {
public:
    LineView(ryv::TextField& field, ViewContext& context, QWidget* parent)
        : QLineEdit(parent), field_(field), keeper_(field),
          link_(new ControlLink(*this, field, [this] { take(); })) {
        // A style sheet, since it follows the palette when the look changes.
        setStyleSheet(QStringLiteral("QLineEdit[readOnly=\"true\"] { background: palette(window); }"));
        connect(this, &QLineEdit::textEdited, this, [this, &context] {
            link_->forward(context, [this] {
                setRefused(*this, false);
                keeper_.type(*this, text());
            });
        });
    }

    /// Room for a word: beside others it would shrink to a letter.
    QSize minimumSizeHint() const override {
        const QSize least = QLineEdit::minimumSizeHint();
        return {least.width() + fontMetrics().averageCharWidth() * 8, least.height()};
    }

protected:
    /// Selected from its end, so that what is too long shows where it begins.
    void focusInEvent(QFocusEvent* event) override {
        QLineEdit::focusInEvent(event);
        if (hasSelectedText() && selectedText() == text())
            setSelection(static_cast<int>(text().size()), -static_cast<int>(text().size()));
    }

private:
    void take() {
        setReadOnly(field_.isReadOnly());
        setPlaceholderText(toQt(field_.placeholder()));
        takeLimit();
        if (keeper_.hasNews())
            takeText();
    }

    /// What the program has put in may be longer than what the user may leave. Setting the limit moves the
    /// cursor.
    void takeLimit() {
        const std::size_t most = std::max(field_.maxLength(), field_.text().size());
        const int limit = field_.maxLength() == 0 ? INT_MAX : static_cast<int>(most);
        if (maxLength() != limit)
            setMaxLength(limit);
    }

    void takeText() {
        const QString text = toQt(keeper_.text());
        setRefused(*this, false);
        if (text == this->text())
            return;
        const int size = static_cast<int>(text.size());
        const bool isAtEnd = cursorPosition() == this->text().size();
        const int place = isAtEnd ? size : std::min(cursorPosition(), size);
        setText(text);
        setCursorPosition(hasFocus() ? place : 0);
    }

    ryv::TextField& field_;
    TextKeeper keeper_;
    ControlLink* link_;
};

QWidget* makeArea(ryv::TextField& field, ViewContext& context, QWidget* parent) {
    auto* const view = new TextArea(parent);
    const auto keeper = std::make_shared<TextKeeper>(field);
    auto* const link = new ControlLink(*view, field, [view, keeper, &field] {
        if (view->isReadOnly() != field.isReadOnly())
            view->setQuiet(field.isReadOnly());
        if (!keeper->hasNews())
            return;
        const QString text = toQt(keeper->text());
        setRefused(*view, false);
        if (text == view->toPlainText())
            return;
        view->setPlainText(text);
        view->updateGeometry();
    });
    QObject::connect(view, &QPlainTextEdit::textChanged, link, [link, view, keeper, &context] {
        if (link->isTaking())
            return;
        link->forward(context, [view, keeper] {
            setRefused(*view, false);
            keeper->type(*view, view->toPlainText());
        });
    });
    return view;
}

} // namespace

bool isRefused(const QWidget& view) {
    return view.property(refusedProperty).toBool();
}

QWidget* makeTextView(ryv::TextField& field, ViewContext& context, QWidget* parent) {
    if (field.isMultiLine())
        return makeArea(field, context, parent);
    return new LineView(field, context, parent);
}

} // namespace drafta
