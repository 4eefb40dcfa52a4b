// Text records as texts to be shown.
#pragma once

#include "embedded/drawings/display_list.h"
#include "embedded/drawings/drawing_text.h"
#include "embedded/drawings/dxf_record.h"

#include <optional>

namespace drafta {

/// A text with its letters; DisplayText::text and the style are not set. Nothing for a text without letters
/// or height.
struct DisplayWriting {
    DisplayText place;
    ryv::CString text;
};

/// A TEXT, ATTRIB or ATTDEF record; `letters` is the code of its text.
std::optional<DisplayWriting> lineOfText(const DxfRecord& record, const DrawingText& text, int letters);

/// A MTEXT record.
std::optional<DisplayWriting> paragraphsOfText(const DxfRecord& record, const DrawingText& text);

} // namespace drafta
