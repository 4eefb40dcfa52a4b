#include "toolkit/panel.h"

#include "toolkit/control_factory.h"
#include "toolkit/control_value.h"

namespace ryv {

Panel::Panel(const PanelLayout& layout, TextSource texts)
    : title_(resolve(layout.title, texts)), sameRow_(layout.sameRow) {
    for (const ControlLayout& control : layout.controls)
        adopt(makeControl(control, texts), (control.traits & LayoutTraits::sameRow) != 0);
}

Panel::~Panel() = default;

void Panel::adopt(std::unique_ptr<Control> control, bool sameRow) {
    if (find(control->id()))
        throw std::invalid_argument("two controls with one ID");
    places_.push_back({control.get(), sameRow});
    controls_.push_back(std::move(control));
}

Control* Panel::find(int id) const noexcept {
    for (const auto& control : controls_)
        if (control->id() == id)
            return control.get();
    return nullptr;
}

void Panel::load(const Binding& record) {
    for (const auto& control : controls_)
        if (const std::optional<CString> value = record.value(*control))
            setValue(*control, *value);
}

void Panel::store(Binding& record) const {
    for (const auto& control : controls_) {
        const std::optional<CString> before = record.value(*control);
        const std::optional<CString> value = valueOf(*control);
        if (before && value && !showsValue(*control, *before))
            record.setValue(*control, *value);
    }
}

} // namespace ryv
