// The settings block of a drawing: one block reference whose attributes hold the drawing's 77 settings. The
// functions work on a drawing in memory; saving it is the caller's business.
#pragma once

#include "model/drawing_settings.h"
#include "siblings/dbx_block_ref.h"

namespace ryv {

/// The name of the settings block.
inline constexpr CStringView settingsBlockName = u"KQ_M";

/// Opens the first reference of a block: in model space, else in the paper spaces. True when there is one.
bool findSettingsBlock(RyvDbxBlockRef& accessor, CStringView blockName);

/// Opens the settings block, which is inserted into model space at the origin when the drawing has none; LISP
/// knows where its file is. False when it cannot be had; `showMessages`: the user is told why, so that
/// anything may have changed when this returns.
bool ensureSettingsBlock(RyvDbxBlockRef& accessor, bool showMessages);

/// Reads the settings out of the open reference or, when none is open, the settings block. A setting that the
/// block lacks stays as it is; `startFromDefaults`: all settings first get the defaults of the active
/// project, or of a drawing outside of projects, also when there is no block (false).
bool readDrawingSettings(RyvDbxBlockRef& accessor, RyvCfgDrawingSettings& settings, bool startFromDefaults);

/// Writes the settings into the open reference or, when none is open, the settings block; absent ones as
/// empty texts. Attributes that the block lacks are added first. False when there is no block, or when an
/// attribute cannot be added: no value is written then. A value that the drawing does not take is passed
/// over.
bool writeDrawingSettings(RyvDbxBlockRef& accessor, const RyvCfgDrawingSettings& settings);

/// Adds every attribute that the settings block lacks, empty, below its lowest one and in the order of the
/// settings. False when there is no block or an attribute cannot be added.
bool addMissingSettingsAttributes(RyvDbxBlockRef& accessor);

/// The tag of the open reference's attribute that stands lowest, the first of several at one height. False,
/// with `tag` left alone, when it has none.
bool findLowestAttributeTag(RyvDbxBlockRef& accessor, CString& tag);

/// Gives every ladder reference block in every space that uses the wire number format `oldFormat` (case
/// ignored) the new one; blocks with a format of their own keep it. Nothing is done when the two are the
/// same, case included.
void replaceLadderWireFormat(RyvDbxBlockRef& accessor, CStringView oldFormat, CStringView newFormat);

/// Brings a drawing in line with a project's settings: all but the drawing-specific ones become those of
/// `source`, absent ones included, its wire layers are added to the drawing's, and ladders follow a change of
/// the wire number format. False when the settings block cannot be had (`showMessages` as in
/// ensureSettingsBlock()) or written.
bool applySettingsToDrawing(RyvDbxBlockRef& accessor, const RyvCfgDrawingSettings& source, bool showMessages);

/// Writes a script for the host into the package's user folder, over the one before; `path` is its full path
/// then. False, with `path` left alone, when the folder is not known or the file cannot be written.
bool writeTempScript(CStringView text, CString& path);

} // namespace ryv
