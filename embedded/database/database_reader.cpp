#include "embedded/database/database_reader.h"

#include "base/fold.h"
#include "embedded/database/mdb_table.h"
#include "embedded/database/sqlite_table.h"

#include <algorithm>
#include <map>

namespace drafta {

namespace {

constexpr std::size_t mostKept = 32; // databases; about as many projects are ever open together

/// A table, or why there is none.
struct TableResult {
    std::optional<DatabaseTable> table;
    ryv::CString problem;
    ReadFault fault = ReadFault::ofFile;
};

} // namespace

/// An open database and what was read from it.
struct DatabaseReader::Known {
    std::string native;
    DatabaseFile file;
    std::map<ryv::CString, TableResult> tables; // by name in capitals
    ReadPatience::File patience;
};

/// What recordsets need, also after the reader's end.
struct DatabaseReader::Shared {
    explicit Shared(DatabaseReaderOptions its)
        : options(std::move(its)), patience(options.limits.time, options.now) {}

    const DatabaseReaderOptions options;
    ReadPatience patience;
};

class DatabaseReader::Recordset final : public ryv::DatabaseRecordset {
public:
    Recordset(std::shared_ptr<Known> database, std::shared_ptr<Shared> shared)
        : database_(std::move(database)), shared_(std::move(shared)) {}

    bool query(const ryv::DatabaseQuery& query, ryv::CStringArray& row, ryv::CString& problem) override {
        TableResult& result = tableOf(query.table);
        if (!result.table)
            return fail(result.problem, problem);
        const std::optional<std::size_t> key = result.table->column(query.keyColumn);
        const std::optional<std::size_t> column = result.table->column(query.column);
        if (!key || !column)
            return fail(u"table " + query.table + u" has no column " + (key ? query.column : query.keyColumn),
                problem);
        const ryv::CString* const field = result.table->find(*key, query.key, *column);
        row = field ? ryv::CStringArray{*field} : ryv::CStringArray();
        return true;
    }

private:
    bool fail(ryv::CStringView reason, ryv::CString& problem) const {
        problem = databaseProblem(database_->native, reason);
        return false;
    }

    TableResult& tableOf(const ryv::CString& name) {
        const auto [place, isNew] = database_->tables.try_emplace(ryv::toUpper(name));
        if (isNew)
            read(name, place->second);
        return place->second;
    }

    void read(const ryv::CString& name, TableResult& result) const {
        const DatabaseReaderOptions& options = shared_->options;
        if (database_->file.kind == DatabaseKind::sqlite) {
            result.table = readSqliteTable(database_->native, name, options.limits.time, result.problem);
            return;
        }
        ReaderLimits limits = options.limits;
        limits.time = shared_->patience.limitFor(database_->patience);
        result.table = readMdbTable(
            options.program, database_->file.descriptor.get(), name, limits, result.problem, result.fault);
        if (!result.table && result.fault == ReadFault::ofTime)
            shared_->patience.timedOut(database_->patience);
    }

    std::shared_ptr<Known> database_;
    std::shared_ptr<Shared> shared_;
};

std::chrono::milliseconds DatabaseReaderOptions::steadyNow() {
    return std::chrono::duration_cast<std::chrono::milliseconds>(
        std::chrono::steady_clock::now().time_since_epoch());
}

DatabaseReader::DatabaseReader(DatabaseReaderOptions options)
    : shared_(std::make_shared<Shared>(std::move(options))) {}

DatabaseReader::~DatabaseReader() = default;

/// What is forgotten is read again at the next question.
void DatabaseReader::forgetFailures(Known& database) {
    const bool mayRetry = shared_->patience.mayRetry(database.patience);
    bool retries = false;
    std::erase_if(database.tables, [&](const auto& each) {
        const TableResult& result = each.second;
        const bool isDue = !result.table && result.fault == ReadFault::ofTime && mayRetry;
        retries = retries || isDue;
        return isDue || (!result.table && result.fault == ReadFault::ofReader);
    });
    if (retries)
        shared_->patience.retry(database.patience);
}

std::shared_ptr<DatabaseReader::Known> DatabaseReader::known(const std::string& native, DatabaseFile& file) {
    const auto hit = std::find_if(
        jets_.begin(), jets_.end(), [&native](const auto& each) { return each->native == native; });
    if (hit != jets_.end() && file.kind == DatabaseKind::jet && (*hit)->file.isSameState(file)) {
        std::rotate(hit, hit + 1, jets_.end());
        forgetFailures(*jets_.back());
        return jets_.back();
    }
    if (hit != jets_.end())
        jets_.erase(hit);
    auto database = std::make_shared<Known>();
    database->native = native;
    database->file = std::move(file);
    if (database->file.kind == DatabaseKind::jet) {
        if (jets_.size() >= mostKept)
            jets_.erase(jets_.begin());
        jets_.push_back(database);
    }
    return database;
}

std::unique_ptr<ryv::DatabaseRecordset> DatabaseReader::open(
    const std::string& native, ryv::CString& problem) {
    DatabaseFile file;
    if (!openDatabaseFile(native, file, problem))
        return nullptr;
    return std::make_unique<Recordset>(known(native, file), shared_);
}

} // namespace drafta
