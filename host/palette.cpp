#include "host/palette.h"

#include "host/palette_layout.h"
#include "resources/message_numbers.h"
#include "resources/messages.h"

namespace ryv {

RyvPrmPalette::RyvPrmPalette(HostPalette& host, NavState& nav)
    : host_(host), projects_(RyvPrmControlFactory::Instance().NewProjectComboBox()), tab_(nav),
      details_(detailsId), preview_(previewId) {
    details_.setMultiLine(true);
    details_.setReadOnly(true);
    projects_->Create();
    host_.setHeader(*projects_);
    host_.top().addPage(messageText(message::projectsCaption), tab_.page());
    host_.bottom().addPage(messageText(message::detailsCaption), details_);
    host_.bottom().addPage(messageText(message::previewCaption), preview_);
    subscription_ = tree().detailsChanged.subscribe([this] { showDetails(); });
    showDetails();
}

void RyvPrmPalette::showDetails() {
    CString text;
    tree().GetDisplayDetails(text);
    details_.setText(std::move(text));
    preview_.setDrawing(tree().previewedDrawing());
    watch_.follow(preview_.drawing());
}

void RyvPrmPalette::drawingChanged(DrawingWatch::Change change) {
    showDetails();
    if (change == DrawingWatch::Change::content)
        preview_.refresh();
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
