// The labels of controls in a text.
#pragma once

#include "toolkit/text_renderer.h"

#include <vector>

namespace ryv {

using TextLines = std::vector<CString>;

/// The label as people read it.
CString labelOf(const Control& control);

/// The label in front of a field, with a colon, as wide as it is to be at least; empty without a label.
CString leadOf(const Control& control, std::size_t width);

/// What is said behind a control: that it is disabled, its name if names are shown, what is doubtful about
/// it.
CString notesOf(const Control& control, const RenderOptions& options);

/// The content, indented, below a line for the label and the notes, if there are any.
TextLines headed(const Control& control, const RenderOptions& options, TextLines content);

/// The text with blanks up to a width.
CString padded(CString text, std::size_t width);

} // namespace ryv
