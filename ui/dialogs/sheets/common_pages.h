// The five pages that a project's and a drawing's sheet have in common.
#pragma once

#include "resources/setting_message_numbers.h"
#include "ui/dialogs/settings/component_panels.h"
#include "ui/dialogs/settings/cross_reference_panels.h"
#include "ui/dialogs/settings/drawing_format_panels.h"
#include "ui/dialogs/settings/style_panels.h"
#include "ui/dialogs/settings/wire_number_panels.h"
#include "ui/dialogs/sheets/settings_page.h"

namespace ryv {

class ComponentsPage : public PageOf<CRyvCfgCompTagFormatCDlg, CRyvCfgCompTagOptCDlg> {
protected:
    ComponentsPage() : PageOf(message::pageComponents, u"components") {}
};

class WireNumberPage
    : public PageOf<CRyvCfgWNumWNumTypeCDlg, CRyvCfgWNumWNumPlcmtCDlg, CRyvCfgWNumWNumOptCDlg> {
protected:
    WireNumberPage() : PageOf(message::pageWireNumbers, u"wireNumbers") {}
};

class CrossReferencePage
    : public PageOf<CRyvCfgCrossRefFormatCDlg, CRyvCfgCrossRefOptCDlg, CRyvCfgCrossRefCompDispCDlg> {
protected:
    CrossReferencePage() : PageOf(message::pageCrossReferences, u"crossReferences") {}
};

class StylePage : public PageOf<CRyvCfgStyleWireCDlg, CRyvCfgStyleGenericCDlg, CRyvCfgStyleFanCDlg> {
protected:
    StylePage() : PageOf(message::pageStyles, u"styles") {}
};

class DrawingFormatPage : public PageOf<CRyvCfgDFScaleCDlg, CRyvCfgDFTWNOrderCDlg, CRyvCfgDFLCfgCDlg,
                              CRyvCfgDFFormatRefCDlg, CRyvCfgDFLayerDefineCDlg> {
protected:
    DrawingFormatPage() : PageOf(message::pageDrawingFormat, u"drawingFormat") {}
};

} // namespace ryv
