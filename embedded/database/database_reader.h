// Databases that are read to answer questions about drawings.
#pragma once

#include "embedded/database/database_file.h"
#include "embedded/database/read_patience.h"
#include "embedded/database/reader_process.h"
#include "platform/services/project_database.h"

#include <chrono>
#include <memory>
#include <vector>

namespace drafta {

struct DatabaseReaderOptions {
    std::string program; ///< native path of drafta-mdb-reader
    ReaderLimits limits;
    /// Time that only goes on, for the pauses between attempts.
    ReadPatience::Clock now = steadyNow;

    static std::chrono::milliseconds steadyNow();
};

/// Opens databases of either kind. What was found in a Jet database is kept as long as the file stays the
/// same: trees ask again at every turn, and a damaged file would cost the whole time limit each time. What
/// another cause made fail, as a reader that could not be started, is tried again by the next open(), and so
/// is a read that took too long, within the bounds of ReadPatience.
class DatabaseReader {
public:
    explicit DatabaseReader(DatabaseReaderOptions options);
    DatabaseReader(const DatabaseReader&) = delete;
    DatabaseReader& operator=(const DatabaseReader&) = delete;
    ~DatabaseReader();

    /// A database by its native path; it is read at the first question to each table. Null, with
    /// "FILE: REASON" in `problem`, when the file is no database. Usable on its own, also after the reader's
    /// end.
    std::unique_ptr<ryv::DatabaseRecordset> open(const std::string& native, ryv::CString& problem);

private:
    struct Known;
    struct Shared;
    std::shared_ptr<Known> known(const std::string& native, DatabaseFile& file);

    void forgetFailures(Known& database);

    std::shared_ptr<Shared> shared_;
    std::vector<std::shared_ptr<Known>> jets_; // the one that was asked for last is the last

    class Recordset;
};

} // namespace drafta
