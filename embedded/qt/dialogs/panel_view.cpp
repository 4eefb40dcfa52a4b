#include "embedded/qt/dialogs/panel_view.h"

#include "embedded/qt/controls/control_link.h"
#include "embedded/qt/controls/label_texts.h"
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

bool takesWidth(const Control& control) {
    const ControlKind kind = control.kind();
    return kind == ControlKind::text || kind == ControlKind::combo || kind == ControlKind::label ||
           kind == ControlKind::notice || isTall(control);
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
        QLayout* const fields = tall ? tallFields(row) : fieldsOf(row, beside);
        if (!beside) {
            grid_->addLayout(fields, line, 0, 1, 2);
            return;
        }
        QLabel* const label = labelOf(*row.front());
        const bool radio = row.front()->kind() == ControlKind::radio;
        if (radio) // on one line with the first choice
            label->setMinimumHeight(QRadioButton().sizeHint().height());
        grid_->addWidget(label, line, 0, radio ? Qt::AlignTop : Qt::AlignVCenter);
        grid_->addLayout(fields, line, 1);
    }

private:
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

/// Panels beside each other. Those that can use the height get the width, too; what is small stands in the
/// middle beside them, as the buttons between two lists do.
void addPanelRow(const std::vector<const ryv::Panel*>& panels, ViewContext& context, ControlViews& views,
    QHBoxLayout& row, QWidget* parent) {
    const bool anyTall =
        std::any_of(panels.begin(), panels.end(), [](const ryv::Panel* panel) { return hasTall(*panel); });
    row.setSpacing(metrics::margin);
    for (const ryv::Panel* const panel : panels) {
        const bool tall = hasTall(*panel);
        const bool small = anyTall && !tall && panel->title().empty();
        row.addWidget(makePanelView(*panel, context, views, parent), small ? 0 : 1,
            tall    ? Qt::Alignment()
            : small ? Qt::AlignVCenter
                    : Qt::AlignTop);
    }
}

} // namespace

bool addPanels(const std::vector<ryv::Panel*>& panels, ViewContext& context, ControlViews& views,
    QVBoxLayout& rows, QWidget* parent) {
    bool anyTall = false;
    for (std::size_t at = 0; at < panels.size();) {
        std::vector<const ryv::Panel*> beside{panels[at++]};
        while (at < panels.size() && panels[at]->isOnSameRow())
            beside.push_back(panels[at++]);
        const bool tall = std::any_of(
            beside.begin(), beside.end(), [](const ryv::Panel* panel) { return hasTall(*panel); });
        auto* const row = new QHBoxLayout;
        rows.addLayout(row, tall ? 1 : 0);
        addPanelRow(beside, context, views, *row, parent);
        anyTall = anyTall || tall;
    }
    return anyTall;
}

} // namespace drafta
