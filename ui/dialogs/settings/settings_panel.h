// A panel that edits settings, row by row of a constant table.
#pragma once

#include "toolkit/panel.h"
#include "ui/dialogs/settings/setting_row.h"

#include <map>

namespace ryv {

class PanelGroup;

/// Works as part of a PanelGroup, which outlives the time that its dialog runs.
///
/// A setting that is absent shows as an empty field, with what counts instead as its placeholder, or as the
/// choice that its row names for that, and stays absent unless the user gives it another value. A value that
/// its control cannot show is warned of, and stays unless the user chooses another one. Codes that differ
/// from a choice's in case only are that choice.
class SettingsPanel : public Panel {
public:
    /// The table's rows are constant data.
    explicit SettingsPanel(const SettingTable& table);

    std::span<const SettingRow> rows() const noexcept { return rows_; }

    /// `usual`: what counts where the source has nothing; may be null.
    void loadFrom(const SettingSource& source, const RyvCfgDrawingSettings* usual);
    /// Writes what the user has changed since, whatever the source would say of the rest by now.
    void storeTo(SettingSource& source) const;

    /// What the control of a key shows; nothing when there is no such control, or it shows no value.
    std::optional<CString> shown(const SettingCondition& what) const;

    /// Makes controls usable, and warns, as the values in the group's controls say.
    void refresh();

protected:
    void onChange(Control& control) override;
    void onPress(int id) override;

private:
    friend class PanelGroup;
    class RowBinding;
    /// The value that was looked at last, and what there is to say about it: files are slow to look for.
    struct Judgement {
        CString value;
        CString warning;
    };

    const SettingRow* rowOf(const Control& control) const noexcept;
    bool meets(const SettingCondition& condition) const;
    CString warningOf(const SettingRow& row, const Control& control);
    const CString& judgement(const SettingRow& row, const CString& value);
    std::optional<CString> loaded(int id) const;
    void showUsual(const SettingRow& row, const RyvCfgDrawingSettings* usual);
    void explain(const SettingRow& row);

    std::span<const SettingRow> rows_;
    PanelGroup* group_ = nullptr;
    std::map<int, std::optional<CString>> loaded_; // by control ID, as the source gave it
    std::map<int, Judgement> judgements_;          // by control ID
    std::map<int, CString> explanations_;          // by control ID, asked for once
};

} // namespace ryv
