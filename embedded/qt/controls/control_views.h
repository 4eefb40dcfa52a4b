// The makers of widgets for each kind of control; makeControlView() chooses among them. They promise what it
// promises.
#pragma once

#include "embedded/qt/controls/control_view.h"
#include "toolkit/button.h"
#include "toolkit/check_box.h"
#include "toolkit/combo_box.h"
#include "toolkit/grid.h"
#include "toolkit/group_control.h"
#include "toolkit/label.h"
#include "toolkit/list_box.h"
#include "toolkit/radio_group.h"
#include "toolkit/text_field.h"

namespace drafta {

QWidget* makeLabelView(ryv::Label& label, QWidget* parent);

/// On one line or on many, as the field is now. A text that the field does not accept stays in the widget,
/// marked, until it is mended; the field keeps the last one that it accepted. A read-only field of many lines
/// looks like a part of the pane that it stands in.
QWidget* makeTextView(ryv::TextField& field, ViewContext& context, QWidget* parent);

/// Whether a widget shows a text that its field has not accepted.
bool isRefused(const QWidget& view);

/// `mayPress`, when it is there, is asked before each press.
QWidget* makeButtonView(
    ryv::Button& button, ViewContext& context, QWidget* parent, std::function<bool()> mayPress = nullptr);
QWidget* makeCheckBoxView(ryv::CheckBox& box, ViewContext& context, QWidget* parent);
QWidget* makeRadioView(ryv::RadioGroup& group, ViewContext& context, QWidget* parent);

QWidget* makeListView(ryv::ListBox& list, ViewContext& context, QWidget* parent);
QWidget* makeComboView(ryv::ComboBox& box, ViewContext& context, QWidget* parent);
QWidget* makeGridView(ryv::Grid& grid, ViewContext& context, QWidget* parent);

/// Captions, and below them the page that is selected; a button minimizes it to the captions.
QWidget* makeGroupView(ryv::GroupControl& group, ViewContext& context, QWidget* parent);

} // namespace drafta
