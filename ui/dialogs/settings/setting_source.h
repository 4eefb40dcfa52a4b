// Settings by key, wherever they are kept, so that a table of rows can say what a panel edits.
#pragma once

#include "base/strings.h"

#include <compare>
#include <memory>
#include <optional>

namespace ryv {

class RyvCfgDrawingSettings;

enum class SettingArea {
    none,
    drawing, ///< the 77 settings of drawings, by index
    misc,    ///< miscellaneous settings of a project, by bracket index
    project, ///< other values of a project: ProjectField
    entry    ///< a drawing's entry in its project: EntryField
};

struct SettingKey {
    SettingArea area = SettingArea::none;
    int number = 0;
    auto operator<=>(const SettingKey&) const = default;
};

constexpr SettingKey drawingSetting(int index) noexcept {
    return {SettingArea::drawing, index};
}
constexpr SettingKey miscSetting(int index) noexcept {
    return {SettingArea::misc, index};
}

enum class ProjectField { descriptions /**< lines parted by "\n" */ };
enum class EntryField { file, project, section, subSection, descriptions, referenceOnly };

constexpr SettingKey projectField(ProjectField field) noexcept {
    return {SettingArea::project, static_cast<int>(field)};
}
constexpr SettingKey entryField(EntryField field) noexcept {
    return {SettingArea::entry, static_cast<int>(field)};
}

/// Where settings are read and written.
class SettingSource {
public:
    virtual ~SettingSource() = default;
    /// Nothing when the setting is absent, or is none of this source.
    virtual std::optional<CString> value(SettingKey key) const = 0;
    virtual void setValue(SettingKey key, CStringView value) = 0;
    /// What counts where drawing settings are absent; null when the source cannot tell. May call LISP, so
    /// that it is asked for once and kept.
    virtual std::shared_ptr<const RyvCfgDrawingSettings> usualSettings() const { return nullptr; }
};

/// The value of a key, or an empty text.
inline CString textOf(const SettingSource& source, SettingKey key) {
    return source.value(key).value_or(CString());
}

/// A source of drawing settings alone; the record outlives it.
class DrawingSettingSource final : public SettingSource {
public:
    explicit DrawingSettingSource(RyvCfgDrawingSettings& settings) noexcept : settings_(settings) {}
    std::optional<CString> value(SettingKey key) const override;
    void setValue(SettingKey key, CStringView value) override;

private:
    RyvCfgDrawingSettings& settings_;
};

} // namespace ryv
