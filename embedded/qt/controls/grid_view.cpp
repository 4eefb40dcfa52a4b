#include "embedded/qt/controls/control_link.h"
#include "embedded/qt/controls/control_views.h"
#include "embedded/qt/controls/grid_model.h"
#include "embedded/qt/look/theme.h"
#include "embedded/qt/qt_text.h"

#include <QHeaderView>
#include <QLabel>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTableView>
#include <QVBoxLayout>
#include <algorithm>

namespace drafta {

namespace {

constexpr int lettersOfColumn = 44; // at most, at first: what is longer is in the tooltip
constexpr int lettersOfGrid = 150;
constexpr int rowsThatWidthsAreMadeOf = 200; // to look at all of them takes long

class GridView final : public QTableView {
public:
    GridView(ryv::Grid& grid, ViewContext& context, QWidget* parent)
        : QTableView(parent), grid_(grid), context_(context), cells_(new GridModel(this)),
          empty_(new QLabel(viewport())) {
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
        empty_->setTextFormat(Qt::PlainText);
        empty_->setAlignment(Qt::AlignCenter);
        empty_->setWordWrap(true);
        empty_->setAttribute(Qt::WA_TransparentForMouseEvents);
        (new QVBoxLayout(viewport()))->addWidget(empty_);
        connect(cells_, &GridModel::modelReset, this, [this] { fitColumns(); });
        connect(horizontalHeader(), &QHeaderView::sectionResized, this,
            [this](int column) { noteWidth(column); });
        link_ = new ControlLink(*this, grid, [this] { take(); });
    }

    /// All columns, as far as that is sensible.
    QSize sizeHint() const override {
        const int letter = fontMetrics().averageCharWidth();
        const int columns = horizontalHeader()->length() + verticalScrollBar()->sizeHint().width();
        return {std::clamp(columns + 2 * frameWidth(), letter * 60, letter * lettersOfGrid),
            verticalHeader()->defaultSectionSize() * 17};
    }

protected:
    void selectionChanged(const QItemSelection& now, const QItemSelection& before) override {
        QTableView::selectionChanged(now, before);
        if (!link_ || link_->isTaking() || !currentIndex().isValid() || now.isEmpty())
            return;
        link_->forward(context_, [this] { grid_.choose(static_cast<std::size_t>(currentIndex().row())); });
    }

private:
    /// To the widest that was shown so far, since rows come and go when they are searched; until somebody
    /// chooses a width.
    void fitColumns() {
        if (fitted_ != grid_.columns()) {
            fitted_ = grid_.columns();
            widths_.assign(fitted_.size(), 0);
            isArranged_ = false;
        }
        if (isArranged_)
            return;
        const QScopedValueRollback<bool> guard(isFitting_, true);
        resizeColumnsToContents();
        const int most = fontMetrics().averageCharWidth() * lettersOfColumn;
        for (int column = 0; column < cells_->columnCount(); ++column) {
            int& width = widths_[static_cast<std::size_t>(column)];
            width = std::max(width, std::min(columnWidth(column), most));
            setColumnWidth(column, width);
        }
    }

    /// The last one follows the window.
    void noteWidth(int column) {
        if (!isFitting_ && column + 1 < cells_->columnCount())
            isArranged_ = true;
    }

    void take() {
        cells_->take(grid_);
        empty_->setText(toQt(grid_.placeholder()));
        empty_->setVisible(grid_.rowCount() == 0);
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
    QLabel* empty_;
    ryv::CStringArray fitted_; // the columns that widths_ is of
    std::vector<int> widths_;
    bool isFitting_ = false;
    bool isArranged_ = false; // by somebody
    ControlLink* link_ = nullptr;
};

} // namespace

QWidget* makeGridView(ryv::Grid& grid, ViewContext& context, QWidget* parent) {
    return new GridView(grid, context, parent);
}

} // namespace drafta
