// Styles of wires and symbols.
#pragma once

#include "ui/dialogs/settings/settings_panel.h"

namespace ryv {

/// What wires do where they cross.
class CRyvCfgStyleWireCDlg final : public SettingsPanel {
public:
    CRyvCfgStyleWireCDlg();
};

/// Default styles of signal arrows and of controllers.
class CRyvCfgStyleGenericCDlg final : public SettingsPanel {
public:
    CRyvCfgStyleGenericCDlg();
};

/// Where single lines fan in and out.
class CRyvCfgStyleFanCDlg final : public SettingsPanel {
public:
    CRyvCfgStyleFanCDlg();
};

} // namespace ryv
