#include "embedded/qt/controls/control_view.h"

#include "embedded/qt/controls/control_views.h"
#include "embedded/qt/drawing/picture_view.h"
#include "embedded/qt/tree/tree_views.h"
#include "toolkit/control_page.h"
#include "toolkit/notice_line.h"
#include "toolkit/picture.h"
#include "toolkit/tree_control.h"

namespace drafta {

namespace {

/// Kinds and classes belong together.
template <class C>
C& as(ryv::Control& control) {
    return dynamic_cast<C&>(control);
}

} // namespace

QWidget* makeControlView(ryv::Control& control, ViewContext& context, QWidget* parent) {
    switch (control.kind()) {
    case ryv::ControlKind::label:
        return makeLabelView(as<ryv::Label>(control), parent);
    case ryv::ControlKind::text:
        return makeTextView(as<ryv::TextField>(control), context, parent);
    case ryv::ControlKind::button:
        return makeButtonView(as<ryv::Button>(control), context, parent);
    case ryv::ControlKind::checkBox:
        return makeCheckBoxView(as<ryv::CheckBox>(control), context, parent);
    case ryv::ControlKind::radio:
        return makeRadioView(as<ryv::RadioGroup>(control), context, parent);
    case ryv::ControlKind::list:
        return makeListView(as<ryv::ListBox>(control), context, parent);
    case ryv::ControlKind::combo:
        return makeComboView(as<ryv::ComboBox>(control), context, parent);
    case ryv::ControlKind::grid:
        return makeGridView(as<ryv::Grid>(control), context, parent);
    case ryv::ControlKind::tree:
        return makeTreePane(as<ryv::TreeControl>(control), context, parent);
    case ryv::ControlKind::group:
        return makeGroupView(as<ryv::GroupControl>(control), context, parent);
    case ryv::ControlKind::picture:
        return makePictureView(as<ryv::Picture>(control), context, parent);
    case ryv::ControlKind::page:
        return makePageView(as<ryv::ControlPage>(control), context, parent);
    case ryv::ControlKind::notice:
        return makeNoticeView(as<ryv::NoticeLine>(control), context, parent);
    }
    return nullptr;
}

} // namespace drafta
