// Tables of Jet databases.
#pragma once

#include "embedded/database/database_table.h"
#include "embedded/database/reader_process.h"

namespace drafta {

/// Reads a table with the program `reader`, to which the open file is handed over. Columns of long texts and
/// objects are left out. Nothing, with a reason in `problem` that names no file, when anything is not as it
/// should be: rows are right as far as the file can tell, or there are none. `isOfFile` says whether the file
/// is to blame, so that there is no use in trying again before it changes.
std::optional<DatabaseTable> readMdbTable(const std::string& reader, int file, ryv::CStringView table,
    const ReaderLimits& limits, ryv::CString& problem, bool& isOfFile);

} // namespace drafta
