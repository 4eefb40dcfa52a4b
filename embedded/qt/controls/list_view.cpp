#include "embedded/qt/controls/choice_model.h"
#include "embedded/qt/controls/control_link.h"
#include "embedded/qt/controls/control_views.h"

#include <QListView>
#include <algorithm>

namespace drafta {

namespace {

class ListView final : public QListView {
public:
    ListView(ryv::ListBox& list, ViewContext& context, QWidget* parent)
        : QListView(parent), list_(list), context_(context), rows_(new ChoiceModel(this)) {
        setModel(rows_);
        setUniformItemSizes(true);
        setEditTriggers(NoEditTriggers);
        setTextElideMode(Qt::ElideMiddle);
        setSelectionMode(list.choosesMany() ? ExtendedSelection : SingleSelection);
        link_ = new ControlLink(*this, list, [this] { take(); });
        connect(this, &QListView::doubleClicked, this, [this](const QModelIndex& index) {
            const auto row = static_cast<std::size_t>(index.row());
            link_->forward(context_, [this, row] { list_.activate(row); });
        });
    }

    QSize sizeHint() const override {
        return {fontMetrics().averageCharWidth() * 36, fontMetrics().lineSpacing() * 11};
    }
    QSize minimumSizeHint() const override {
        return {fontMetrics().averageCharWidth() * 12, fontMetrics().lineSpacing() * 4};
    }

protected:
    void showEvent(QShowEvent* event) override {
        QListView::showEvent(event);
        scrollTo(currentIndex()); // there was no height to scroll in before
    }
    void selectionChanged(const QItemSelection& now, const QItemSelection& before) override {
        QListView::selectionChanged(now, before);
        if (link_ && !link_->isTaking())
            link_->forward(context_, [this] { list_.choose(selectedByUser()); });
    }

private:
    /// Of the rows that a search hides, those that were chosen before: nobody has seen the others.
    std::vector<std::size_t> selectedByUser() const {
        std::vector<std::size_t> rows = selectedRows();
        std::erase_if(rows,
            [this](std::size_t row) { return isRowHidden(static_cast<int>(row)) && !list_.isChosen(row); });
        return rows;
    }

    std::vector<std::size_t> selectedRows() const {
        std::vector<std::size_t> rows;
        for (const QItemSelectionRange& range : selectionModel()->selection())
            for (int row = range.top(); row <= range.bottom(); ++row)
                if (rows_->flags(rows_->index(row)) & Qt::ItemIsSelectable) // ranges run across lines
                    rows.push_back(static_cast<std::size_t>(row));
        std::sort(rows.begin(), rows.end());
        return rows;
    }

    void take() {
        rows_->setRows(list_.rows());
        const std::vector<std::size_t> chosen = list_.chosen();
        if (chosen == selectedRows())
            return;
        selectionModel()->select(selectionOf(chosen), QItemSelectionModel::ClearAndSelect);
        const QModelIndex current = currentIndex();
        if (!chosen.empty() && (!current.isValid() || !selectionModel()->isSelected(current)))
            showRow(rows_->index(static_cast<int>(chosen.front())));
    }

    void showRow(const QModelIndex& index) {
        selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
        if (isVisible())
            scrollTo(index);
    }

    /// A range for each run of rows: a choice of all rows is one.
    QItemSelection selectionOf(const std::vector<std::size_t>& chosen) const {
        QItemSelection selection;
        for (std::size_t i = 0; i < chosen.size();) {
            std::size_t end = i + 1;
            while (end < chosen.size() && chosen[end] == chosen[end - 1] + 1)
                ++end;
            selection.append(QItemSelectionRange(
                rows_->index(static_cast<int>(chosen[i])), rows_->index(static_cast<int>(chosen[end - 1]))));
            i = end;
        }
        return selection;
    }

    ryv::ListBox& list_;
    ViewContext& context_;
    ChoiceModel* rows_;
    ControlLink* link_ = nullptr;
};

} // namespace

QWidget* makeListView(ryv::ListBox& list, ViewContext& context, QWidget* parent) {
    return new ListView(list, context, parent);
}

} // namespace drafta
