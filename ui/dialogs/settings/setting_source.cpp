#include "ui/dialogs/settings/setting_source.h"

#include "model/drawing_settings.h"

namespace ryv {

std::optional<CString> DrawingSettingSource::value(SettingKey key) const {
    const CString* const found = key.area == SettingArea::drawing ? settings_.find(key.number) : nullptr;
    return found ? std::optional(*found) : std::nullopt;
}

void DrawingSettingSource::setValue(SettingKey key, CStringView value) {
    const CString text(value);
    if (key.area == SettingArea::drawing)
        settings_.setValue(key.number, &text);
}

} // namespace ryv
