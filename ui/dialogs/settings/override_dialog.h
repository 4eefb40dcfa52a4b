// Cross-references of one component that are to differ from its drawing's.
#pragma once

#include "model/drawing_settings.h"
#include "toolkit/dialog.h"
#include "ui/dialogs/settings/cross_reference_panels.h"
#include "ui/dialogs/settings/panel_group.h"

namespace ryv {

/// Edits sixteen values: the settings 14, 47 and 60 to 73 of a drawing, in this order.
class CRyvCfgCrossRefCompOverrideDlg : public Dialog {
public:
    static constexpr std::size_t valueCount = 16;

    /// Missing values are empty, further ones are not looked at.
    explicit CRyvCfgCrossRefCompOverrideDlg(const CStringArray& values);

    /// As the user has left them.
    CStringArray values() const;

private:
    RyvCfgDrawingSettings settings_;
    DrawingSettingSource source_{settings_};
    CRyvCfgCrossRefFormatCDlg format_;
    CRyvCfgCrossRefOptCDlg options_;
    CRyvCfgCrossRefCompDispCDlg display_;
    PanelGroup group_;
};

} // namespace ryv
