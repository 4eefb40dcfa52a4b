// The panels of the settings pages: what belongs to a project, or to a drawing's entry in one.
#pragma once

#include "ui/dialogs/settings/settings_panel.h"

namespace ryv {

/// Where the project's symbols come from: miscellaneous settings 1 to 4.
class LibrariesPanel final : public SettingsPanel {
public:
    LibrariesPanel();
};

class ProjectDescriptionsPanel final : public SettingsPanel {
public:
    ProjectDescriptionsPanel();
};

/// What cross-references are like where the drawing settings do not say something of their own: miscellaneous
/// settings 5 (its bit 8), 7, 8 and 28.
class ReferenceDefaultsPanel final : public SettingsPanel {
public:
    ReferenceDefaultsPanel();
};

/// Miscellaneous settings 9, which is the package's, and 39, the link to another tool's project, to be read.
class OtherProjectSettingsPanel final : public SettingsPanel {
public:
    OtherProjectSettingsPanel();
};

/// Which drawing it is, to be read.
class DrawingPanel final : public SettingsPanel {
public:
    DrawingPanel();
};

/// The drawing's entry in its project.
class DrawingEntryPanel final : public SettingsPanel {
public:
    DrawingEntryPanel();
};

} // namespace ryv
