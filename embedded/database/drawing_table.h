// The host's own project databases: SQLite files with the table FILETIME, which hold copies of values from
// drawings and can be made again from these.
#pragma once

#include "embedded/database/drawing_rows.h"

#include <string>
#include <vector>

namespace drafta {

/// How an operation ended.
enum class TableResult {
    good,
    busy,    ///< another process is writing; worth another try
    damaged, ///< the file is no sound database any more
    failed   ///< the disk is full, the folder protected or the like
};

/// One database. A connection lasts for one operation, so several processes work on a file in turns. Each
/// operation waits for others for a moment only, changes all or nothing, and leaves the database's own words
/// in `problem` when it is not done.
class DrawingTable {
public:
    /// `native` is the path of the file.
    explicit DrawingTable(std::string native) : native_(std::move(native)) {}

    const std::string& native() const noexcept { return native_; }

    /// Makes the file with an empty table, unless something stands at the path. It appears whole.
    TableResult make(ryv::CString& problem) const;

    /// Removes a damaged file, and makes it anew.
    TableResult remake(ryv::CString& problem) const;

    TableResult readStates(DrawingStates& states, ryv::CString& problem) const;

    /// Writes rows over those with their keys.
    TableResult store(const std::vector<DrawingRow>& rows, ryv::CString& problem) const;

    /// Gives a row another key, over a row that has it already. Nothing happens when there is no such row.
    TableResult rename(ryv::CStringView from, ryv::CStringView to, ryv::CString& problem) const;

private:
    std::string native_;
};

} // namespace drafta
