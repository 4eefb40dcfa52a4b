#include "embedded/qt/controls/control_link.h"
#include "embedded/qt/controls/control_views.h"
#include "embedded/qt/controls/grid_model.h"
#include "embedded/qt/look/theme.h"

#include <QHeaderView>
#include <QTableView>

namespace drafta {

namespace {

constexpr int rowsThatWidthsAreMadeOf = 200; // to look at all of them takes long

class GridView final : public QTableView {
public:
    GridView(ryv::Grid& grid, ViewContext& context, QWidget* parent)
        : QTableView(parent), grid_(grid), context_(context), cells_(new GridModel(this)) {
        setModel(cells_);
        setSelectionBehavior(SelectRows);
        setSelectionMode(SingleSelection);
        setEditTriggers(NoEditTriggers);
        setTabKeyNavigation(false);
        setShowGrid(false);
        setAlternatingRowColors(true);
        setWordWrap(false);
        verticalHeader()->hide();
        verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 2 * metrics::rowPadding);
        horizontalHeader()->setStretchLastSection(true);
        horizontalHeader()->setHighlightSections(false);
        horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
        horizontalHeader()->setResizeContentsPrecision(rowsThatWidthsAreMadeOf);
        link_ = new ControlLink(*this, grid, [this] { take(); });
        connect(cells_, &GridModel::modelReset, this, [this] { resizeColumnsToContents(); });
        resizeColumnsToContents();
    }

    QSize sizeHint() const override {
        return {fontMetrics().averageCharWidth() * 60, fontMetrics().lineSpacing() * 12};
    }

protected:
    void selectionChanged(const QItemSelection& now, const QItemSelection& before) override {
        QTableView::selectionChanged(now, before);
        if (!link_ || link_->isTaking() || !currentIndex().isValid() || now.isEmpty())
            return;
        link_->forward(context_, [this] { grid_.choose(static_cast<std::size_t>(currentIndex().row())); });
    }

private:
    void take() {
        cells_->take(grid_);
        const int row = grid_.chosen() ? static_cast<int>(*grid_.chosen()) : -1;
        const int selected =
            selectionModel()->hasSelection() ? selectionModel()->selectedRows().front().row() : -1;
        if (row < 0)
            clearSelection();
        else if (row != selected)
            selectRow(row);
    }

    ryv::Grid& grid_;
    ViewContext& context_;
    GridModel* cells_;
    ControlLink* link_ = nullptr;
};

} // namespace

QWidget* makeGridView(ryv::Grid& grid, ViewContext& context, QWidget* parent) {
    return new GridView(grid, context, parent);
}

} // namespace drafta
