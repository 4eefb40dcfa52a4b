#include "embedded/qt/dialogs/panel_view.h"

#include "embedded/qt/controls/control_link.h"
#include "embedded/qt/controls/label_texts.h"
#include "embedded/qt/controls/row_search.h"
#include "embedded/qt/look/theme.h"
#include "embedded/qt/qt_text.h"
#include "toolkit/text_field.h"

#include <QGroupBox>
#include <QLabel>
#include <QRadioButton>
#include <QVBoxLayout>
#include <algorithm>

namespace drafta {

namespace {

using ryv::Control;
using ryv::ControlKind;
using Row = std::vector<Control*>;

constexpr std::size_t lettersOfBrief = 16; // what a field is wide enough for that asks for no more

std::vector<Row> rowsOf(const ryv::Panel& panel) {
    std::vector<Row> rows;
    for (const ryv::Panel::Place& place : panel.places()) {
        if (!place.sameRow || rows.empty())
            rows.emplace_back();
        rows.back().push_back(place.control);
    }
    return rows;
}

/// Whether it can use all the height that there is; its label stands above it.
bool isTall(const Control& control) {
    switch (control.kind()) {
    case ControlKind::list:
    case ControlKind::grid:
    case ControlKind::tree:
    case ControlKind::group:
    case ControlKind::picture:
    case ControlKind::page:
        return true;
    case ControlKind::text:
        return dynamic_cast<const ryv::TextField&>(control).isMultiLine();
    default:
        return false;
    }
}

bool hasTall(const Row& row) {
    return std::any_of(row.begin(), row.end(), [](const Control* control) { return isTall(*control); });
}

bool hasTall(const ryv::Panel& panel) {
    return std::any_of(panel.places().begin(), panel.places().end(),
        [](const ryv::Panel::Place& place) { return isTall(*place.control); });
}

bool isNamedBeside(const Control& control) {
    const ControlKind kind = control.kind();
    const bool isField =
        kind == ControlKind::text || kind == ControlKind::combo || kind == ControlKind::radio;
    return isField && !isTall(control) && !control.label().empty();
}

bool isBrief(const Control& control) {
    const auto* const field = dynamic_cast<const ryv::TextField*>(&control);
    return field && !field->isMultiLine() &&
           (field->isBrief() || (field->maxLength() > 0 && field->maxLength() <= lettersOfBrief));
}

bool takesWidth(const Control& control) {
    const ControlKind kind = control.kind();
    return !isBrief(control) &&
           (kind == ControlKind::text || kind == ControlKind::combo || kind == ControlKind::label ||
               kind == ControlKind::notice || isTall(control));
}

/// Several fields, each with its name: they stand in columns, one below the other from row to row.
bool isRowOfFields(const Row& row) {
    return row.size() > 1 && std::all_of(row.begin(), row.end(), [](const Control* control) {
        return isNamedBeside(*control) && control->kind() != ControlKind::radio;
    });
}

/// What is doubtful about the values of a row, each with its field's name where there are several.
QString warningsOf(const Row& row) {
    QStringList lines;
    const auto fields =
        std::count_if(row.begin(), row.end(), [](const Control* control) { return isNamedBeside(*control); });
    for (const Control* const control : row)
        if (const QString warning = toQt(control->warning()); !warning.isEmpty() && control->isVisible())
            lines += fields <= 1 ? warning : spokenLabel(*control) + QStringLiteral(": ") + warning;
    return lines.join(u'\n');
}

class PanelBuilder {
public:
    PanelBuilder(ViewContext& context, ControlViews& views, QWidget& panel)
        : context_(context), views_(views), panel_(panel), grid_(new QGridLayout(&panel)) {
        grid_->setColumnStretch(1, 1);
        grid_->setHorizontalSpacing(metrics::gap);
        grid_->setVerticalSpacing(metrics::gap);
    }
    QGridLayout& grid() { return *grid_; }

    void add(const Row& row) {
        const int line = line_++;
        const bool tall = hasTall(row);
        const bool beside = isNamedBeside(*row.front()) && !tall;
        if (isRowOfFields(row)) {
            addFields(row, line);
            addWarnings(row);
            return;
        }
        QLayout* const fields = tall ? tallFields(row) : fieldsOf(row, beside);
        addWarnings(row);
        if (!beside) {
            grid_->addLayout(fields, line, 0, 1, -1);
            return;
        }
        QLabel* const label = labelOf(*row.front());
        const bool radio = row.front()->kind() == ControlKind::radio;
        if (radio) // on one line with the first choice
            label->setMinimumHeight(QRadioButton().sizeHint().height());
        grid_->addWidget(label, line, 0, radio ? Qt::AlignTop : Qt::AlignVCenter);
        grid_->addLayout(fields, line, 1, 1, -1);
    }

private:
    void addFields(const Row& row, int line) {
        int column = 0;
        for (Control* const control : row) {
            grid_->addWidget(labelOf(*control), line, column);
            grid_->addWidget(viewOf(*control), line, column + 1,
                isBrief(*control) ? Qt::AlignLeft | Qt::AlignVCenter : Qt::Alignment());
            grid_->setColumnStretch(column + 1, 1);
            column += 2;
        }
    }

    /// A line below the row, which is there while it has something to say.
    void addWarnings(const Row& row) {
        auto* const text = new QLabel(&panel_);
        text->setTextFormat(Qt::PlainText);
        text->setForegroundRole(QPalette::BrightText); // the theme's colour for warnings
        text->setWordWrap(true);
        text->hide();
        grid_->addWidget(text, line_++, 1, 1, -1);
        for (Control* const control : row)
            follow(*text, *control, [text, row] {
                text->setText(warningsOf(row));
                if (text->isHidden() != text->text().isEmpty())
                    text->setHidden(text->text().isEmpty());
            });
    }
    QWidget* viewOf(Control& control) {
        QWidget*& view = views_[control.id()];
        if (!view)
            view = makeControlView(control, context_, &panel_);
        return view;
    }
    QLabel* labelOf(Control& control) { return makeFieldLabel(control, *viewOf(control), &panel_); }

    QLayout* fieldsOf(const Row& row, bool firstIsNamed) {
        auto* const fields = new QHBoxLayout;
        fields->setSpacing(metrics::gap);
        for (Control* const control : row) {
            const bool named = isNamedBeside(*control) && !(firstIsNamed && control == row.front());
            if (named)
                fields->addWidget(labelOf(*control));
            fields->addWidget(viewOf(*control), takesWidth(*control) ? 1 : 0);
        }
        if (std::none_of(row.begin(), row.end(), [](const Control* c) { return takesWidth(*c); }))
            fields->addStretch(1);
        return fields;
    }

    /// Controls beside one that is tall stand in a column, as the buttons that work on a list do.
    QLayout* tallFields(const Row& row) {
        auto* const fields = new QHBoxLayout;
        fields->setSpacing(metrics::gap);
        QVBoxLayout* column = nullptr;
        for (Control* const control : row) {
            if (isTall(*control)) {
                fields->addLayout(headed(*control), 1);
                column = nullptr;
                continue;
            }
            if (!column)
                column = addColumn(*fields);
            if (isNamedBeside(*control))
                column->insertWidget(column->count() - 1, labelOf(*control));
            column->insertWidget(column->count() - 1, viewOf(*control));
        }
        return fields;
    }

    static QVBoxLayout* addColumn(QHBoxLayout& fields) {
        auto* const column = new QVBoxLayout;
        column->setSpacing(metrics::gap);
        column->addStretch(1);
        fields.addLayout(column);
        return column;
    }

    QLayout* headed(Control& control) {
        auto* const column = new QVBoxLayout;
        column->setSpacing(metrics::gap / 2);
        QWidget* const view = viewOf(control);
        // The height goes to whoever is there to use it: a stretch of the row would keep it for hidden ones.
        view->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
        if (QLabel* const label = makeFieldLabel(control, *view, &panel_))
            column->addWidget(label);
        if (QWidget* const search = makeRowSearch(control, *view, &panel_))
            column->addWidget(search);
        column->addWidget(view, 1);
        return column;
    }

    ViewContext& context_;
    ControlViews& views_;
    QWidget& panel_;
    QGridLayout* grid_;
    int line_ = 0;
};

/// A frame around nothing is not shown.
void hideWhenEmpty(QWidget& frame, const ryv::Panel& panel) {
    const auto take = [&frame, &panel] {
        const bool any = std::any_of(panel.places().begin(), panel.places().end(),
            [](const ryv::Panel::Place& place) { return place.control->isVisible(); });
        if (frame.isHidden() == any)
            frame.setVisible(any);
    };
    for (const ryv::Panel::Place& place : panel.places())
        follow(frame, *place.control, take);
}

} // namespace

QWidget* makePanelView(const ryv::Panel& panel, ViewContext& context, ControlViews& views, QWidget* parent) {
    const bool framed = !panel.title().empty();
    QWidget* const view = framed ? new QGroupBox(asWidgetLabel(panel.title()), parent) : new QWidget(parent);
    PanelBuilder builder(context, views, *view);
    if (!framed)
        builder.grid().setContentsMargins(0, 0, 0, 0);
    for (const Row& row : rowsOf(panel))
        builder.add(row);
    if (framed)
        hideWhenEmpty(*view, panel);
    return view;
}

namespace {

/// What stands in front of the fields of a line; null for none.
const QLayoutItem* nameIn(const QGridLayout& grid, int line) {
    const QLayoutItem* const item = grid.itemAtPosition(line, 0);
    return item != grid.itemAtPosition(line, 1) ? item : nullptr;
}

/// How far a panel's content is from its left edge.
int insetOf(const QGridLayout& grid) {
    return grid.contentsMargins().left() + grid.parentWidget()->contentsMargins().left();
}

/// The fields of panels below each other begin at one place, as if they stood in one panel.
void alignFields(const std::vector<QGridLayout*>& grids) {
    int begin = 0;
    for (const QGridLayout* const grid : grids)
        for (int line = 0; line < grid->rowCount(); ++line)
            if (const QLayoutItem* const name = nameIn(*grid, line))
                begin = std::max(begin, insetOf(*grid) + name->sizeHint().width());
    for (QGridLayout* const grid : grids)
        grid->setColumnMinimumWidth(0, std::max(0, begin - insetOf(*grid)));
}

/// Panels beside each other. Those that can use the height get the width, too; what is small stands in the
/// middle beside them, as the buttons between two lists do.
void addPanelRow(const std::vector<const ryv::Panel*>& panels, ViewContext& context, ControlViews& views,
    QHBoxLayout& row, QWidget* parent, std::vector<QGridLayout*>& alone) {
    const bool anyTall =
        std::any_of(panels.begin(), panels.end(), [](const ryv::Panel* panel) { return hasTall(*panel); });
    row.setSpacing(metrics::margin);
    for (const ryv::Panel* const panel : panels) {
        const bool tall = hasTall(*panel);
        const bool small = anyTall && !tall && panel->title().empty();
        QWidget* const view = makePanelView(*panel, context, views, parent);
        if (panels.size() == 1)
            alone.push_back(qobject_cast<QGridLayout*>(view->layout()));
        row.addWidget(view, small ? 0 : 1, tall ? Qt::Alignment() : small ? Qt::AlignVCenter : Qt::AlignTop);
    }
}

} // namespace

bool addPanels(const std::vector<ryv::Panel*>& panels, ViewContext& context, ControlViews& views,
    QVBoxLayout& rows, QWidget* parent) {
    bool anyTall = false;
    std::vector<QGridLayout*> alone;
    for (std::size_t at = 0; at < panels.size();) {
        std::vector<const ryv::Panel*> beside{panels[at++]};
        while (at < panels.size() && panels[at]->isOnSameRow())
            beside.push_back(panels[at++]);
        const bool tall = std::any_of(
            beside.begin(), beside.end(), [](const ryv::Panel* panel) { return hasTall(*panel); });
        auto* const row = new QHBoxLayout;
        rows.addLayout(row, tall ? 1 : 0);
        addPanelRow(beside, context, views, *row, parent, alone);
        anyTall = anyTall || tall;
    }
    alignFields(alone);
    return anyTall;
}

} // namespace drafta
