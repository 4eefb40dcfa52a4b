#include "embedded/qt/controls/row_search.h"

#include "embedded/qt/controls/control_link.h"
#include "embedded/qt/look/icons.h"
#include "embedded/qt/qt_text.h"
#include "toolkit/grid.h"
#include "toolkit/tree_filter.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QShortcut>
#include <QTableView>

namespace drafta {

namespace {

constexpr int rowsSeenAtOnce = 15;

class RowSearch final : public QLineEdit {
public:
    RowSearch(QAbstractItemView& view, QWidget* parent) : QLineEdit(parent), view_(view) {
        setPlaceholderText(tr("Find"));
        setAccessibleName(tr("Find in the list"));
        setClearButtonEnabled(true);
        if (const QIcon icon = themeIcon("search"); !icon.isNull())
            addAction(icon, LeadingPosition);
        setObjectName(QStringLiteral("search"));
        hide(); // its layout would show it
        auto* const keys = new QShortcut(QKeySequence::Find, &view_);
        keys->setContext(Qt::WidgetShortcut);
        connect(keys, &QShortcut::activated, this, [this] { setFocus(Qt::ShortcutFocusReason); });
        const QAbstractItemModel* const rows = view_.model();
        connect(rows, &QAbstractItemModel::rowsInserted, this, &RowSearch::take);
        connect(rows, &QAbstractItemModel::rowsRemoved, this, &RowSearch::take);
        connect(rows, &QAbstractItemModel::modelReset, this, &RowSearch::take);
        connect(rows, &QAbstractItemModel::dataChanged, this, &RowSearch::filter);
        connect(this, &QLineEdit::textChanged, this, &RowSearch::filter);
        take();
    }

protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_Escape && !text().isEmpty())
            clear();
        else if (event->key() == Qt::Key_Down)
            toRows();
        else
            QLineEdit::keyPressEvent(event);
    }

private:
    void take() {
        const bool isLong = view_.model()->rowCount() > rowsSeenAtOnce;
        if (isHidden() == isLong)
            setVisible(isLong);
        if (!isLong)
            clear(); // nothing is hidden that cannot be brought back
        filter();
    }

    void filter() {
        const ryv::TreeFilter words(fromQt(text()));
        for (int row = 0; row < view_.model()->rowCount(); ++row)
            setRowHidden(row, !words.matches(fromQt(textOf(row))));
    }

    QString textOf(int row) const {
        QStringList texts;
        for (int column = 0; column < view_.model()->columnCount(); ++column)
            texts += view_.model()->index(row, column).data().toString();
        return texts.join(u'\n');
    }

    void setRowHidden(int row, bool hidden) {
        if (auto* const list = qobject_cast<QListView*>(&view_))
            list->setRowHidden(row, hidden);
        else if (auto* const table = qobject_cast<QTableView*>(&view_))
            table->setRowHidden(row, hidden);
    }

    void toRows() {
        view_.setFocus(Qt::TabFocusReason);
        if (view_.currentIndex().isValid() && !view_.visualRect(view_.currentIndex()).isEmpty())
            return;
        for (int row = 0; row < view_.model()->rowCount(); ++row) {
            const QModelIndex index = view_.model()->index(row, 0);
            if (view_.visualRect(index).isEmpty())
                continue;
            view_.setCurrentIndex(index);
            return;
        }
    }

    QAbstractItemView& view_;
};

bool isSearchedHere(const ryv::Control& control) {
    if (const auto* const grid = dynamic_cast<const ryv::Grid*>(&control))
        return !grid->isSearchedByDialog();
    return control.kind() == ryv::ControlKind::list;
}

} // namespace

QWidget* makeRowSearch(const ryv::Control& control, QWidget& view, QWidget* parent) {
    auto* const rows = qobject_cast<QAbstractItemView*>(&view);
    return rows && isSearchedHere(control) ? new RowSearch(*rows, parent) : nullptr;
}

} // namespace drafta
