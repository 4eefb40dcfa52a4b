#include "embedded/database/sqlite_connection.h"

#include "base/encoding.h"

#include <cstring>

namespace drafta {

namespace {

constexpr int stepsBetweenLooks = 10'000; // of the database's machine, well under a millisecond

int flagsOf(SqliteConnection::Mode mode) {
    switch (mode) {
    case SqliteConnection::Mode::read:
        return SQLITE_OPEN_READONLY;
    case SqliteConnection::Mode::write:
        return SQLITE_OPEN_READWRITE;
    case SqliteConnection::Mode::create:
        break;
    }
    return SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
}

ryv::CString textOf(const void* utf16, int bytes) {
    ryv::CString text(static_cast<std::size_t>(bytes) / sizeof(char16_t), u'\0');
    if (!text.empty())
        std::memcpy(text.data(), utf16, text.size() * sizeof(char16_t));
    return text;
}

} // namespace

SqliteConnection::SqliteConnection(const std::string& native, Mode mode, std::chrono::milliseconds patience) {
    sqlite3* connection = nullptr;
    code_ = sqlite3_open_v2(
        native.c_str(), &connection, flagsOf(mode) | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_PRIVATECACHE, nullptr);
    connection_.reset(connection);
    if (!ok())
        return;
    sqlite3_extended_result_codes(connection, 0);
    sqlite3_busy_timeout(connection, static_cast<int>(patience.count()));
    for (const int option : {SQLITE_DBCONFIG_ENABLE_VIEW, SQLITE_DBCONFIG_ENABLE_TRIGGER,
             SQLITE_DBCONFIG_TRUSTED_SCHEMA, SQLITE_DBCONFIG_DQS_DML})
        sqlite3_db_config(connection, option, 0, nullptr);
    sqlite3_db_config(connection, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
}

ryv::CString SqliteConnection::problem() const {
    return ryv::decodeUtf8(connection_ ? sqlite3_errmsg(connection_.get()) : sqlite3_errstr(code_));
}

void SqliteConnection::limitTime(std::chrono::milliseconds time) {
    end_ = std::chrono::steady_clock::now() + time;
    const auto isOver = [](void* self) {
        return std::chrono::steady_clock::now() > static_cast<SqliteConnection*>(self)->end_ ? 1 : 0;
    };
    if (connection_)
        sqlite3_progress_handler(connection_.get(), stepsBetweenLooks, isOver, this);
}

bool SqliteConnection::run(const char* statements) {
    if (ok())
        code_ = sqlite3_exec(connection_.get(), statements, nullptr, nullptr, nullptr);
    return ok();
}

SqliteStatement::SqliteStatement(SqliteConnection& connection, const std::string& text)
    : connection_(connection) {
    if (!connection_.ok())
        return;
    sqlite3_stmt* statement = nullptr;
    connection_.code_ = sqlite3_prepare_v2(connection_.handle(), text.c_str(), -1, &statement, nullptr);
    statement_.reset(statement);
}

void SqliteStatement::bind(int place, ryv::CStringView text) {
    if (connection_.ok())
        connection_.code_ = sqlite3_bind_text16(statement_.get(), place, text.empty() ? u"" : text.data(),
            static_cast<int>(text.size() * sizeof(char16_t)), SQLITE_TRANSIENT);
}

void SqliteStatement::bind(int place, std::int64_t number) {
    if (connection_.ok())
        connection_.code_ = sqlite3_bind_int64(statement_.get(), place, number);
}

bool SqliteStatement::next() {
    if (!connection_.ok())
        return false;
    connection_.code_ = sqlite3_step(statement_.get());
    return connection_.code_ == SQLITE_ROW;
}

bool SqliteStatement::run() {
    while (next())
        ;
    if (connection_.ok())
        connection_.code_ = sqlite3_reset(statement_.get());
    return connection_.ok();
}

ryv::CString SqliteStatement::columnName(int column) const {
    const char* const name = sqlite3_column_name(statement_.get(), column);
    return name ? ryv::decodeUtf8(name) : ryv::CString();
}

ryv::CString SqliteStatement::text(int column) const {
    const void* const utf16 = sqlite3_column_text16(statement_.get(), column);
    return utf16 ? textOf(utf16, sqlite3_column_bytes16(statement_.get(), column)) : ryv::CString();
}

} // namespace drafta
