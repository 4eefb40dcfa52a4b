// Reading drawing files, and what is said when that fails.
#pragma once

#include "embedded/drawings/drawing_content.h"
#include "platform/host/drawings.h"
#include "siblings/file_content.h"

namespace drafta {

/// Reads a drawing's file; nothing after a failure, and `result` names the file, the line and the reason. The
/// fingerprint lacks its hash, which is the content's readHash().
std::optional<DrawingContent> readDrawing(
    ryv::Files& files, ryv::CStringView path, ryv::Fingerprint& fingerprint, ryv::DrawingResult& result);

/// "FILE: REASON", or "FILE:LINE: REASON" with a line above 0.
ryv::DrawingResult drawingFailure(ryv::CStringView file, std::size_t line, ryv::CStringView reason);

} // namespace drafta
