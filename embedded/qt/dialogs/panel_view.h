// Panels of dialogs as rows of widgets.
#pragma once

#include "embedded/qt/controls/control_view.h"
#include "toolkit/panel.h"

#include <unordered_map>
#include <vector>

class QVBoxLayout;

namespace drafta {

/// The widgets of a dialog, by the numbers of their controls.
using ControlViews = std::unordered_map<int, QWidget*>;

/// The controls of a panel, in a frame when it has a title. A frame whose controls are all hidden is hidden
/// as well. The widgets are added to `views`.
QWidget* makePanelView(const ryv::Panel& panel, ViewContext& context, ControlViews& views, QWidget* parent);

/// Panels below each other, or beside each other where they say so. Returns whether one of them can use more
/// height than it needs.
bool addPanels(const std::vector<ryv::Panel*>& panels, ViewContext& context, ControlViews& views,
    QVBoxLayout& rows, QWidget* parent);

} // namespace drafta
