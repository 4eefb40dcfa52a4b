// The palette: what the palette set shows. At the top the projects, at the bottom two pages about what is
// selected there.
#pragma once

#include "host/drawing_watch.h"
#include "platform/host/palettes.h"
#include "toolkit/picture.h"
#include "toolkit/text_field.h"
#include "ui/tree/project_tab.h"

namespace ryv {

class RyvPrmPalette {
public:
    static constexpr int detailsId = 1;
    static constexpr int previewId = 2;

    /// Builds the pages into the host's palette, which outlives this object's use but not this object. The
    /// navigation manager outlives the palette.
    RyvPrmPalette(HostPalette& host, NavState& nav);
    RyvPrmPalette(const RyvPrmPalette&) = delete;
    RyvPrmPalette& operator=(const RyvPrmPalette&) = delete;

    HostPalette& host() const noexcept { return host_; }

    RyvPrmProjectTab& tab() noexcept { return tab_; }
    /// The open projects, above the tree.
    RyvPrmComboBox& projects() noexcept { return *projects_; }
    CProjectTree& tree() noexcept { return tab_.tree(); }

    /// Read-only text about what is selected.
    TextField& details() noexcept { return details_; }
    /// What the selected drawing looks like.
    Picture& preview() noexcept { return preview_; }

    /// Writes the palette's own part of the layout into its node, and takes it on from there; what is missing
    /// stays as it is.
    void saveLayout(WorkspaceNode& node) const;
    void loadLayout(const WorkspaceNode& node);

    void applyTheme();

private:
    void showDetails();
    void drawingChanged(DrawingWatch::Change change);

    HostPalette& host_;
    std::unique_ptr<RyvPrmComboBox> projects_;
    RyvPrmProjectTab tab_;
    TextField details_;
    Picture preview_;
    DrawingWatch watch_{[this](DrawingWatch::Change change) { drawingChanged(change); }};
    Subscription subscription_;
};

} // namespace ryv
