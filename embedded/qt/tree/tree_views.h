// Widgets for trees, for the pages they stand on and for notices.
#pragma once

class QWidget;

namespace ryv {
class ControlPage;
class NoticeLine;
class TreeControl;
} // namespace ryv

namespace drafta {

struct ViewContext;

// All of them follow their model until either is gone, and are owned by `parent`. Model and context outlive
// them.

/// A field that filters, above the rows.
QWidget* makeTreePane(ryv::TreeControl& control, ViewContext& context, QWidget* parent);

/// Buttons, below them the content, at the bottom the notice.
QWidget* makePageView(ryv::ControlPage& page, ViewContext& context, QWidget* parent);

/// Hidden while there is nothing to tell.
QWidget* makeNoticeView(ryv::NoticeLine& notice, ViewContext& context, QWidget* parent);

} // namespace drafta
