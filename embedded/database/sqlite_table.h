// Tables of SQLite databases.
#pragma once

#include "embedded/database/database_table.h"

#include <chrono>
#include <string>

namespace drafta {

/// Reads a table of a database file. Nothing, with the database's own words in `problem`, when there is no
/// such table, the file is damaged, somebody else keeps it locked, or reading takes longer than `time`.
std::optional<DatabaseTable> readSqliteTable(
    const std::string& native, ryv::CStringView table, std::chrono::milliseconds time, ryv::CString& problem);

} // namespace drafta
