// The package's own dialogs for settings that are more than one text, each on the settings of a source. All
// give false, with the source as it was, when the user cancels or the package has no such dialog now (it
// needs a current document). Anything may have changed when one returns; the source is still there.
#pragma once

#include "ui/dialogs/settings/setting_source.h"

namespace ryv::setting_dialogs {

/// Lists of suffixes.
bool editComponentSuffixes(SettingSource& settings);
bool editWireNumberSuffixes(SettingSource& settings);

/// The kind of line references, and the values of X-Y or X-zone references.
bool chooseLineReferences(SettingSource& settings);
bool setUpGridReferences(SettingSource& settings);

/// Has the package set the wire layers of the list up in the current drawing; changes no setting.
bool setUpWireLayers(SettingSource& settings);

/// Formats for single wire layers, "LAYER=FORMAT;LAYER=FORMAT" in the setting MISC_DATA. While that holds
/// anything else, it is somebody else's: the user is told, and nothing is asked.
bool setUpFormatsByLayer(SettingSource& settings);

/// The three gaps of wire numbers that stand in line.
bool setUpInlineGap(SettingSource& settings);

/// How cross-references look as text, as graphics and as a table, with what belongs to all three.
bool setUpReferenceText(SettingSource& settings);
bool setUpReferenceGraphics(SettingSource& settings);
bool setUpReferenceTable(SettingSource& settings);

} // namespace ryv::setting_dialogs
