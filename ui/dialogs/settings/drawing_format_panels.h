// What drawings are made of: scale, ladders, references, numbering order and layers.
#pragma once

#include "ui/dialogs/settings/settings_panel.h"

namespace ryv {

/// Units and size of symbols.
class CRyvCfgDFScaleCDlg final : public SettingsPanel {
public:
    CRyvCfgDFScaleCDlg();
};

/// Defaults of new ladders.
class CRyvCfgDFLCfgCDlg final : public SettingsPanel {
public:
    CRyvCfgDFLCfgCDlg();
};

/// The kind of line references, and the grid of those that have one.
class CRyvCfgDFFormatRefCDlg final : public SettingsPanel {
public:
    CRyvCfgDFFormatRefCDlg();
};

/// The order in which tags and wire numbers are given. Of SORTMODE, 0 is the order of drawing; 1 to 4 go by
/// columns and 5 to 8 by rows; any other text can be typed.
class CRyvCfgDFTWNOrderCDlg final : public SettingsPanel {
public:
    CRyvCfgDFTWNOrderCDlg();
};

/// The layers of what the package draws.
class CRyvCfgDFLayerDefineCDlg final : public SettingsPanel {
public:
    CRyvCfgDFLayerDefineCDlg();
};

} // namespace ryv
