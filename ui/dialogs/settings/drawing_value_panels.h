// What belongs to one drawing.
#pragma once

#include "ui/dialogs/settings/settings_panel.h"

namespace ryv {

/// Its sheet and its number.
class CRyvCfgSheetValsCDlg final : public SettingsPanel {
public:
    CRyvCfgSheetValsCDlg();
};

/// Its project, installation and location codes.
class CRyvCfgIECDesigCDlg final : public SettingsPanel {
public:
    CRyvCfgIECDesigCDlg();
};

} // namespace ryv
