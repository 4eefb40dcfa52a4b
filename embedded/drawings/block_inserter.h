// Inserting block references.
#pragma once

#include "embedded/drawings/drawing_content.h"
#include "platform/host/drawings.h"
#include "platform/os/files.h"

namespace drafta {

/// DrawingDatabase::insertBlock says what this does. `reference` is the new one after success. `drawing` is
/// the path to name in messages. A fault in the file or in how it would have to be copied leaves the content
/// as it was.
ryv::DrawingResult insertBlock(ryv::Files& files, DrawingContent& content, ryv::CStringView drawing,
    SpaceId space, const ryv::BlockInsertion& insertion, ReferenceId& reference);

} // namespace drafta
