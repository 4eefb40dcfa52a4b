#include "toolkit/dialog.h"

#include <array>

namespace ryv {

namespace {
/// The numbers are those of the module's catalogue.
constexpr std::array<ButtonLayout, 2> usualButtons = {
    {{Dialog::idOk, u"ok", {91, u"OK"}}, {Dialog::idCancel, u"cancel", {92, u"Cancel"}}}};
} // namespace

Dialog::Dialog(const DialogLayout& layout, TextSource texts)
    : name_(layout.name), title_(resolve(layout.title, texts)), defaultButton_(layout.defaultButton) {
    for (const PanelLayout& panel : layout.panels) {
        ownPanels_.push_back(std::make_unique<Panel>(panel, texts));
        addPanel(*ownPanels_.back());
    }
    const std::span<const ButtonLayout> buttons = layout.buttons.empty() ? usualButtons : layout.buttons;
    for (const ButtonLayout& button : buttons)
        addButton(button, texts);
}

Dialog::~Dialog() = default;

void Dialog::setTitle(CString title) {
    title_ = std::move(title);
    rearranged.fire();
}

void Dialog::addButton(const ButtonLayout& layout, TextSource texts) {
    auto button = std::make_unique<Button>(layout.id);
    button->setName(CString(layout.name));
    button->setLabel(resolve(layout.label, texts));
    follow(*button);
    subscriptions_.push_back(
        button->pressed.subscribe([this](Button& source) { pressed(nullptr, source.id()); }));
    buttons_.push_back(std::move(button));
}

void Dialog::addPanel(Panel& panel) {
    connect(panel);
    panels_.push_back(&panel);
}

void Dialog::connect(Panel& panel) {
    for (const Panel::Place& place : panel.places()) {
        follow(*place.control);
        subscriptions_.push_back(
            place.control->edited.subscribe([this, &panel](Control& control) { edited(panel, control); }));
        if (auto* const button = dynamic_cast<Button*>(place.control))
            subscriptions_.push_back(
                button->pressed.subscribe([this, &panel](Button& source) { pressed(&panel, source.id()); }));
    }
}

void Dialog::follow(Control& control) {
    if (find(control.id()))
        throw std::invalid_argument("two controls with one ID");
    controls_.push_back(&control);
    subscriptions_.push_back(
        control.changed.subscribe([this](const Control& source) { changed.fire(source); }));
}

Control* Dialog::find(int id) const noexcept {
    for (Control* const control : controls_)
        if (control->id() == id)
            return control;
    return nullptr;
}

void Dialog::setFocus(int id) {
    reveal(control<Control>(id));
    focus_ = id;
    rearranged.fire();
}

void Dialog::setDefaultButton(int id) {
    defaultButton_ = id;
    rearranged.fire();
}

void Dialog::begin() {
    if (open_)
        return;
    open_ = true;
    result_ = 0;
    const unsigned run = ++run_;
    try {
        if (!onInit())
            endRun(run, idCancel);
    } catch (...) {
        endRun(run, idCancel);
        throw;
    }
}

void Dialog::edited(Panel& panel, Control& control) {
    if (!open_)
        return;
    panel.onChange(control);
    if (open_)
        onChange(control);
}

bool Dialog::press(int id) {
    return open_ && control<Button>(id).press();
}

bool Dialog::pressDefault() {
    return defaultButton_ != 0 && press(defaultButton_);
}

void Dialog::pressCancel() {
    if (!open_)
        return;
    const unsigned run = run_;
    onCancel();
    endRun(run, idCancel);
}

void Dialog::pressed(Panel* panel, int id) {
    if (!open_)
        return;
    if (id == idOk) {
        confirm();
    } else if (id == idCancel) {
        pressCancel();
    } else {
        if (panel)
            panel->onPress(id);
        if (open_)
            onPress(id);
    }
}

void Dialog::confirm() {
    const unsigned run = run_;
    if (onOk())
        endRun(run, idOk);
}

/// A question asked meanwhile may have let others close the dialog, and begin it again.
void Dialog::endRun(unsigned run, int result) {
    if (run == run_)
        end(result);
}

void Dialog::end(int result) {
    if (!open_)
        return;
    open_ = false;
    result_ = result;
    ended.fire();
}

} // namespace ryv
