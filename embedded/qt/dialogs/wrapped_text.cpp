#include "embedded/qt/dialogs/wrapped_text.h"

#include <QScrollBar>
#include <QTextDocument>
#include <cmath>

namespace drafta {

WrappedText::WrappedText(const QString& text, QWidget* parent) : QTextEdit(parent) {
    setPlainText(text);
    setReadOnly(true);
    setFrameShape(NoFrame);
    viewport()->setAutoFillBackground(false);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    document()->setDocumentMargin(0);
    setFocusPolicy(Qt::ClickFocus);
    setAccessibleName(text);
}

/// In a document of its own: the widget's follows the size that the widget has now.
int WrappedText::heightAt(int width) const {
    QTextDocument copy(toPlainText());
    copy.setDefaultFont(font());
    QTextOption option;
    option.setWrapMode(wordWrapMode());
    copy.setDefaultTextOption(option);
    copy.setDocumentMargin(0);
    copy.setTextWidth(width);
    return static_cast<int>(std::ceil(copy.size().height()));
}

void WrappedText::fit(int leastWidth, int mostWidth, int mostHeight) {
    int width = qBound(leastWidth, fontMetrics().size(0, toPlainText()).width() + 2, mostWidth);
    int height = heightAt(width);
    const bool scrolls = height > mostHeight;
    if (scrolls) { // the keyboard has to get there
        height = mostHeight;
        width = mostWidth;
        setFocusPolicy(Qt::StrongFocus);
    }
    setVerticalScrollBarPolicy(scrolls ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
    setFixedSize(width + (scrolls ? verticalScrollBar()->sizeHint().width() : 0), height);
}

} // namespace drafta
