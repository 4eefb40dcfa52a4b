#include "embedded/qt/controls/control_link.h"
#include "embedded/qt/controls/control_views.h"
#include "embedded/qt/look/theme.h"
#include "embedded/qt/qt_text.h"

#include <QLineEdit>
#include <QPlainTextEdit>
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
            QStringLiteral("The field does not take this text."), &view);
    else
        QToolTip::hideText();
}

/// Many lines. As tall as a few of them unless there is room.
class TextArea final : public QPlainTextEdit {
public:
    explicit TextArea(QWidget* parent) : QPlainTextEdit(parent) {
        setTabChangesFocus(true);
        setMinimumHeight(heightOf(2));
    }
    QSize sizeHint() const override { return {fontMetrics().averageCharWidth() * 50, heightOf(5)}; }
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

private:
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

private:
    void take() {
        setReadOnly(field_.isReadOnly());
        if (keeper_.hasNews())
            takeText();
        // What the program has put in may be longer than what the user may leave.
        const std::size_t most = std::max(field_.maxLength(), field_.text().size());
        setMaxLength(field_.maxLength() == 0 ? INT_MAX : static_cast<int>(most));
    }

    void takeText() {
        const QString text = toQt(keeper_.text());
        setRefused(*this, false);
        if (text == this->text())
            return;
        const int place = cursorPosition();
        setMaxLength(INT_MAX);
        setText(text);
        setCursorPosition(hasFocus() ? std::min(place, static_cast<int>(text.size())) : 0);
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
        if (text != view->toPlainText())
            view->setPlainText(text);
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
