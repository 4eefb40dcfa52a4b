#include "embedded/qt/controls/choice_model.h"
#include "embedded/qt/controls/control_link.h"
#include "embedded/qt/controls/control_views.h"
#include "embedded/qt/look/icons.h"
#include "embedded/qt/look/theme.h"
#include "embedded/qt/qt_text.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QWheelEvent>
#include <climits>

namespace drafta {

namespace {

/// The toolkit's own delegate draws the icon of the row under the pointer as if it had no selection behind
/// it.
class RowDelegate final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(
        QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        if (!isLine(index)) {
            QStyledItemDelegate::paint(painter, option, index);
            return;
        }
        const int middle = option.rect.center().y();
        painter->setPen(currentTheme().line);
        painter->drawLine(option.rect.left(), middle, option.rect.right(), middle);
    }
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const QSize row = QStyledItemDelegate::sizeHint(option, index);
        return isLine(index) ? QSize(1, metrics::gap / 2 + 1) : row + QSize(0, metrics::rowPadding);
    }

private:
    /// How the combo box itself marks its lines.
    static bool isLine(const QModelIndex& index) {
        return index.data(Qt::AccessibleDescriptionRole).toString() == QLatin1String("separator");
    }
};

class ComboView final : public QComboBox {
public:
    ComboView(ryv::ComboBox& box, ViewContext& context, QWidget* parent)
        : QComboBox(parent), box_(box), context_(context) {
        setEditable(box.isEditable());
        setItemDelegate(new RowDelegate(this));
        setIconSize(QSize(metrics::icon, metrics::icon));
        view()->setIconSize(iconSize());
        setInsertPolicy(NoInsert);
        setFocusPolicy(Qt::StrongFocus);
        setSizeAdjustPolicy(AdjustToContents);
        setMinimumContentsLength(box.isEditable() || box.isMenu() ? 10 : 0); // choices are read whole
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
        if (hasFocus() && !box_.isMenu())
            QComboBox::wheelEvent(event);
        else
            event->ignore();
    }

    /// Arrows and letters would choose the next row of a closed list.
    void keyPressEvent(QKeyEvent* event) override {
        const bool moves = event->key() == Qt::Key_Up || event->key() == Qt::Key_Down ||
                           event->key() == Qt::Key_PageUp || event->key() == Qt::Key_PageDown ||
                           event->key() == Qt::Key_Home || event->key() == Qt::Key_End ||
                           (!event->text().isEmpty() && event->text().front().isLetterOrNumber());
        if (box_.isMenu() && moves)
            showPopup();
        else
            QComboBox::keyPressEvent(event);
    }

private:
    void take() {
        const QSignalBlocker quiet(this);
        if (shown_ != box_.rows())
            takeRows();
        setPlaceholderText(toQt(box_.placeholder()));
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
                addRow(row);
        }
    }

    void addRow(const ryv::Choice& row) {
        addItem(rowIcon(row.image), toQt(row.text));
        if (row.marked)
            setItemData(count() - 1, markedFont(), Qt::FontRole);
    }

    /// The line has the keyboard, and screen readers would name it by its text.
    void takeText(QLineEdit& line) {
        line.setAccessibleName(accessibleName());
        line.setAccessibleDescription(accessibleDescription());
        line.setPlaceholderText(toQt(box_.placeholder()));
        takeLimit(line);
        const int row = box_.chosen() ? static_cast<int>(*box_.chosen()) : -1;
        const QString text = toQt(box_.text());
        const int place = line.text() == text ? line.cursorPosition() : -1;
        if (currentIndex() != row)
            setCurrentIndex(row); // puts its own text in
        if (line.text() != text)
            line.setText(text);
        if (place >= 0)
            line.setCursorPosition(place);
        else if (!line.hasFocus())
            line.setCursorPosition(0); // the beginning of what is too long
    }

    /// Setting it moves the cursor.
    void takeLimit(QLineEdit& line) const {
        const std::size_t most = std::max(box_.maxLength(), box_.text().size());
        const int limit = box_.maxLength() == 0 ? INT_MAX : static_cast<int>(most);
        if (line.maxLength() != limit)
            line.setMaxLength(limit);
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
