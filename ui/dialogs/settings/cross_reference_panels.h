// Cross-references between the parts of a component.
#pragma once

#include "ui/dialogs/settings/settings_panel.h"

namespace ryv {

/// Their format, on the same drawing and on others.
class CRyvCfgCrossRefFormatCDlg final : public SettingsPanel {
public:
    CRyvCfgCrossRefFormatCDlg();
};

/// What belongs to them however they are shown.
class CRyvCfgCrossRefOptCDlg final : public SettingsPanel {
public:
    CRyvCfgCrossRefOptCDlg();
};

/// How they are shown: XREF_STYLE 0 is text, 1 graphics, 2 a table. Graphics are those of a style where
/// XREF_GRAPHIC is 0, and those of the contact map where it is 1.
class CRyvCfgCrossRefCompDispCDlg final : public SettingsPanel {
public:
    CRyvCfgCrossRefCompDispCDlg();
};

} // namespace ryv
