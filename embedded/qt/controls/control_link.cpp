#include "embedded/qt/controls/control_link.h"

#include "embedded/qt/controls/label_texts.h"
#include "embedded/qt/qt_text.h"

#include <QPointer>
#include <QVariant>
#include <QWidget>

namespace drafta {

namespace {

class Follower final : public QObject {
public:
    Follower(QObject& owner, ryv::Control& control, std::function<void()> take)
        : QObject(&owner),
          changes_(control.changed.subscribe([take = std::move(take)](const ryv::Control&) { take(); })) {}

private:
    ryv::Subscription changes_;
};

} // namespace

void follow(QObject& owner, ryv::Control& control, std::function<void()> take) {
    take();
    new Follower(owner, control, std::move(take));
}

ControlLink::ControlLink(QWidget& widget, ryv::Control& control, std::function<void()> take)
    : QObject(&widget), widget_(widget), control_(control), take_(std::move(take)),
      changes_(control.changed.subscribe([this](const ryv::Control&) { takeOver(); })) {
    widget.setObjectName(toQt(control.name()));
    widget.setProperty(controlIdProperty, control.id());
    takeOver();
}

void ControlLink::takeOver() {
    ++depth_;
    takeTexts();
    take_();
    takeState();
    --depth_;
}

void ControlLink::takeTexts() {
    const QString label = spokenLabel(control_);
    const QString tooltip = toQt(control_.tooltip());
    const QString spoken = !label.isEmpty() ? label : !tooltip.isEmpty() ? tooltip : toQt(control_.name());
    widget_.setAccessibleName(spoken);
    const QString warning = toQt(control_.warning());
    const QString explained = tooltip == spoken ? QString() : tooltip;
    widget_.setAccessibleDescription(warning.isEmpty() ? explained : warning + u'\n' + explained);
    widget_.setToolTip(asTooltip(control_.tooltip()));
}

/// A widget that was never hidden is left alone: whoever puts it somewhere shows it.
void ControlLink::takeState() {
    widget_.setEnabled(control_.isEnabled());
    if (hides_ == !control_.isVisible())
        return;
    hides_ = !hides_;
    widget_.setVisible(!hides_);
}

void ControlLink::forward(ViewContext& context, std::function<void()> gesture) {
    context.perform([self = QPointer<ControlLink>(this), gesture = std::move(gesture)] {
        if (self)
            gesture();
        if (self)
            self->takeOver();
    });
}

} // namespace drafta
