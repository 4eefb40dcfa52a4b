// The values of the properties sheets as their panels see them.
#pragma once

#include "ui/dialogs/settings/setting_source.h"
#include "ui/dialogs/sheets/sheet_values.h"

namespace ryv {

/// Of a project, which outlives the source. Library paths (miscellaneous settings 1 to 4) are given with the
/// folders that their path variables stand for and as this machine writes paths, and kept with the variables.
class ProjectValueSource final : public SettingSource {
public:
    explicit ProjectValueSource(ProjectValues& values) noexcept : values_(values) {}
    std::optional<CString> value(SettingKey key) const override;
    void setValue(SettingKey key, CStringView value) override;
    std::shared_ptr<const RyvCfgDrawingSettings> usualSettings() const override;

private:
    ProjectValues& values_;
};

/// Of a drawing, which outlives the source. The entry's texts lose "=" in front, which files cannot hold.
class DrawingValueSource final : public SettingSource {
public:
    explicit DrawingValueSource(DrawingValues& values) noexcept : values_(values) {}
    std::optional<CString> value(SettingKey key) const override;
    void setValue(SettingKey key, CStringView value) override;

private:
    DrawingValues& values_;
};

} // namespace ryv
