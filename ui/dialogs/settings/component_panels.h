// How components are tagged.
#pragma once

#include "ui/dialogs/settings/settings_panel.h"

namespace ryv {

/// The format of tags, and what numbers them.
class CRyvCfgCompTagFormatCDlg final : public SettingsPanel {
public:
    CRyvCfgCompTagFormatCDlg();
};

/// Suffixes of tags that would be the same.
class CRyvCfgCompTagOptCDlg final : public SettingsPanel {
public:
    CRyvCfgCompTagOptCDlg();
};

} // namespace ryv
