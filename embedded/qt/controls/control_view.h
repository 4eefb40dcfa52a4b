// Widgets for the models of controls.
#pragma once

#include "toolkit/control.h"

#include <QString>
#include <functional>

class QWidget;

namespace drafta {

class DrawingSource;

/// What views need beside their model. Outlives them.
struct ViewContext {
    /// Where pictures get their drawings from; null: pictures stay empty.
    DrawingSource* drawings = nullptr;
    /// Runs what the user has asked for: model calls that may ask questions, fire events or end the view.
    /// Called from an event of a widget; may run `work` at once or when that event is over.
    std::function<void(std::function<void()> work)> perform = [](const std::function<void()>& work) {
        work();
    };
    /// Shows a module's path to people.
    std::function<QString(ryv::CStringView path)> shownPath;
    /// Shows a topic of the help.
    std::function<void(ryv::CStringView topic)> showHelp;
};

/// A widget that shows a control and hands on what the user does; it follows the model until either is gone,
/// and is owned by `parent`. The model outlives it. Label, tooltip and name go to the accessible texts.
QWidget* makeControlView(ryv::Control& control, ViewContext& context, QWidget* parent);

} // namespace drafta
