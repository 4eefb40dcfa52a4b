// Tables of Jet databases.
#pragma once

#include "embedded/database/database_table.h"
#include "embedded/database/reader_process.h"

namespace drafta {

/// What is to blame when a table cannot be read.
enum class ReadFault {
    ofFile,   ///< there is no use in trying again before it changes
    ofReader, ///< it could not be started
    ofTime    ///< the file, or a disk or computer that was slow
};

/// Reads a table with the program `reader`, to which the open file is handed over. Columns of long texts and
/// objects are left out. Nothing, with a reason in `problem` that names no file, when anything is not as it
/// should be: rows are right as far as the file can tell, or there are none, and `fault` says why.
std::optional<DatabaseTable> readMdbTable(const std::string& reader, int file, ryv::CStringView table,
    const ReaderLimits& limits, ryv::CString& problem, ReadFault& fault);

} // namespace drafta
