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
    bool isLasting = true; ///< as long as the file stays the same
};

} // namespace

/// An open database and what was read from it.
struct DatabaseReader::Known {
    std::string native;
    DatabaseFile file;
    std::map<ryv::CString, TableResult> tables; // by name in capitals
};

class DatabaseReader::Recordset final : public ryv::DatabaseRecordset {
public:
    Recordset(std::shared_ptr<Known> database, std::shared_ptr<const DatabaseReaderOptions> options)
        : database_(std::move(database)), options_(std::move(options)) {}

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
        const ReaderLimits& limits = options_->limits;
        if (database_->file.kind == DatabaseKind::sqlite)
            result.table = readSqliteTable(database_->native, name, limits.time, result.problem);
        else
            result.table = readMdbTable(options_->program, database_->file.descriptor.get(), name, limits,
                result.problem, result.isLasting);
    }

    std::shared_ptr<Known> database_;
    std::shared_ptr<const DatabaseReaderOptions> options_;
};

DatabaseReader::DatabaseReader(DatabaseReaderOptions options)
    : options_(std::make_shared<const DatabaseReaderOptions>(std::move(options))) {}

DatabaseReader::~DatabaseReader() = default;

std::shared_ptr<DatabaseReader::Known> DatabaseReader::known(const std::string& native, DatabaseFile& file) {
    const auto hit = std::find_if(
        jets_.begin(), jets_.end(), [&native](const auto& each) { return each->native == native; });
    if (hit != jets_.end() && file.kind == DatabaseKind::jet && (*hit)->file.isSameState(file)) {
        std::rotate(hit, hit + 1, jets_.end());
        std::erase_if(jets_.back()->tables, [](const auto& each) { return !each.second.isLasting; });
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
    return std::make_unique<Recordset>(known(native, file), options_);
}

} // namespace drafta
