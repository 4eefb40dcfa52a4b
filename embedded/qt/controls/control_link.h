// Keeps a widget in step with the control that it shows.
#pragma once

#include "embedded/qt/controls/control_view.h"

#include "base/event.h"

#include <QObject>
#include <functional>

namespace drafta {

/// A child of its widget. The control outlives it.
class ControlLink : public QObject {
public:
    /// `take` gives the widget what the control holds. It is called now and whenever the control is another;
    /// label texts, tooltip, being enabled and being visible are taken over beside it.
    ControlLink(QWidget& widget, ryv::Control& control, std::function<void()> take);

    /// Whether the widget is being changed by the model, so that its signals are no gestures.
    bool isTaking() const noexcept { return depth_ != 0; }

    /// Hands a gesture of the user on; the widget shows afterwards what the model made of it. Dropped when
    /// the widget goes before its turn.
    void forward(ViewContext& context, std::function<void()> gesture);

private:
    void takeOver();
    void takeTexts();
    void takeState();

    QWidget& widget_;
    const ryv::Control& control_;
    std::function<void()> take_;
    int depth_ = 0;
    bool hides_ = false;
    ryv::Subscription changes_;
};

/// Calls `take` now and whenever the control is another, for as long as `owner` lives.
void follow(QObject& owner, ryv::Control& control, std::function<void()> take);

/// The property by which widgets know their control's number.
inline constexpr const char* controlIdProperty = "controlId";

} // namespace drafta
