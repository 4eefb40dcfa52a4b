// What project databases tell of drawings, and where it stands in these.
#pragma once

#include "base/strings.h"
#include "platform/os/files.h"

#include <cstdint>
#include <map>

namespace drafta {

/// What a drawing's file was like when its values were read.
struct DrawingState {
    std::int64_t modifiedNanoseconds = 0; ///< since 1970-01-01 UTC
    std::int64_t size = 0;                ///< bytes
    bool operator==(const DrawingState&) const = default;
};

/// One row. The values are empty in a drawing without settings.
struct DrawingRow {
    ryv::CString drawing; ///< the key, as databaseKey() makes it
    DrawingState state;
    ryv::CString sheet;
    ryv::CString number;
    ryv::CString installation;
    ryv::CString location;
};

/// By key.
using DrawingStates = std::map<ryv::CString, DrawingState>;

/// The key of a drawing: its path in capitals, with "/" between its parts.
ryv::CString databaseKey(ryv::CStringView drawing);

/// Reads the values from the settings block of a drawing's file on disk; what a document has not saved does
/// not count. False when the file cannot be read as a drawing.
bool readDrawingRow(ryv::Files& files, ryv::CStringView drawing, DrawingRow& row);

} // namespace drafta
