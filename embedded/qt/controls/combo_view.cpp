#include "embedded/qt/controls/control_link.h"
#include "embedded/qt/controls/control_views.h"
#include "embedded/qt/qt_text.h"

#include <QComboBox>
#include <QLineEdit>
#include <QWheelEvent>
#include <climits>

namespace drafta {

namespace {

class ComboView final : public QComboBox {
public:
    ComboView(ryv::ComboBox& box, ViewContext& context, QWidget* parent)
        : QComboBox(parent), box_(box), context_(context) {
        setEditable(box.isEditable());
        setInsertPolicy(NoInsert);
        setFocusPolicy(Qt::StrongFocus);
        setSizeAdjustPolicy(AdjustToContents);
        setMinimumContentsLength(10);
        link_ = new ControlLink(*this, box, [this] { take(); });
        connect(this, &QComboBox::activated, this, [this](int row) {
            link_->forward(context_, [this, row] { box_.choose(static_cast<std::size_t>(row)); });
        });
        if (QLineEdit* const line = lineEdit()) {
            setCompleter(nullptr); // it would complete to texts that nobody has typed
            connect(line, &QLineEdit::textEdited, this,
                [this] { link_->forward(context_, [this] { box_.type(fromQt(currentText())); }); });
        }
    }

protected:
    /// A wheel that scrolls the dialog does not choose something in passing.
    void wheelEvent(QWheelEvent* event) override {
        if (hasFocus())
            QComboBox::wheelEvent(event);
        else
            event->ignore();
    }

private:
    void take() {
        const QSignalBlocker quiet(this);
        if (shown_ != box_.rows())
            takeRows();
        if (QLineEdit* const line = lineEdit())
            takeText(*line);
        else
            setCurrentIndex(box_.chosen() ? static_cast<int>(*box_.chosen()) : -1);
    }

    void takeRows() {
        shown_ = box_.rows();
        clear();
        for (const ryv::Choice& row : shown_) {
            if (row.separator)
                insertSeparator(count());
            else
                addItem(toQt(row.text));
        }
    }

    void takeText(QLineEdit& line) {
        const std::size_t most = std::max(box_.maxLength(), box_.text().size());
        line.setMaxLength(box_.maxLength() == 0 ? INT_MAX : static_cast<int>(most));
        const int row = box_.chosen() ? static_cast<int>(*box_.chosen()) : -1;
        const QString text = toQt(box_.text());
        const int place = line.text() == text ? line.cursorPosition() : -1;
        if (currentIndex() != row)
            setCurrentIndex(row); // puts its own text in
        if (line.text() != text)
            line.setText(text);
        if (place >= 0)
            line.setCursorPosition(place);
    }

    ryv::ComboBox& box_;
    ViewContext& context_;
    ryv::Choices shown_;
    ControlLink* link_ = nullptr;
};

} // namespace

QWidget* makeComboView(ryv::ComboBox& box, ViewContext& context, QWidget* parent) {
    return new ComboView(box, context, parent);
}

} // namespace drafta
