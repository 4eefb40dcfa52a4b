// How wires are numbered, and where the numbers stand.
#pragma once

#include "ui/dialogs/settings/settings_panel.h"

namespace ryv {

/// The format of wire numbers, and what counts them.
class CRyvCfgWNumWNumTypeCDlg final : public SettingsPanel {
public:
    CRyvCfgWNumWNumTypeCDlg();
};

/// Where wire numbers stand at their wire, and their leaders. Of WNUM_FLAGS, 0 is in line with the wire, 1
/// above and 2 below it.
class CRyvCfgWNumWNumPlcmtCDlg final : public SettingsPanel {
public:
    CRyvCfgWNumWNumPlcmtCDlg();
};

/// Suffixes of wire numbers that would be the same, and formats for single layers.
class CRyvCfgWNumWNumOptCDlg final : public SettingsPanel {
public:
    CRyvCfgWNumWNumOptCDlg();
};

} // namespace ryv
