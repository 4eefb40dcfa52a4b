#include "host/palette.h"

#include "host/palette_layout.h"
#include "resources/message_numbers.h"
#include "resources/messages.h"

namespace ryv {

RyvPrmPalette::RyvPrmPalette(HostPalette& host) : host_(host), details_(detailsId), preview_(previewId) {
    details_.setMultiLine(true);
    details_.setReadOnly(true);
    host_.bottom().addPage(messageText(message::detailsCaption), details_);
    host_.bottom().addPage(messageText(message::previewCaption), preview_);
}

void RyvPrmPalette::saveLayout(WorkspaceNode& node) const {
    node.setString(palette_layout::paletteName, host_.name());
    savePaletteLayout(host_, node);
}

void RyvPrmPalette::loadLayout(const WorkspaceNode& node) {
    loadPaletteLayout(host_, node);
}

void RyvPrmPalette::applyTheme() {
    host_.applyTheme();
}

} // namespace ryv
