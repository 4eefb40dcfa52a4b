// A connection to an SQLite database and the statements that run on it.
#pragma once

#include "base/strings.h"

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <sqlite3.h>
#include <string>

namespace drafta {

/// Ends with the connection's life; used on one thread.
class SqliteConnection {
public:
    enum class Mode { read, write, create };

    /// Opens the file by its native path. Waits up to `patience` for the locks of others, at each statement.
    /// What the database itself brings along to be run (views, triggers) is not.
    SqliteConnection(const std::string& native, Mode mode, std::chrono::milliseconds patience);

    /// The result of the last step: SQLITE_OK, _ROW, _DONE or an error.
    int code() const noexcept { return code_; }
    bool ok() const noexcept { return code_ == SQLITE_OK || code_ == SQLITE_ROW || code_ == SQLITE_DONE; }

    /// The database's own words for the last error.
    ryv::CString problem() const;

    /// Lets every statement fail that is still at work after this time.
    void limitTime(std::chrono::milliseconds time);

    /// Runs statements that give no rows. Nothing is run any more after a failure, here and in
    /// SqliteStatement.
    bool run(const char* statements);

    sqlite3* handle() const noexcept { return connection_.get(); }

private:
    friend class SqliteStatement;
    struct Close {
        void operator()(sqlite3* connection) const { sqlite3_close_v2(connection); }
    };

    std::unique_ptr<sqlite3, Close> connection_;
    int code_ = SQLITE_OK;
    std::chrono::steady_clock::time_point end_{};
};

class SqliteStatement {
public:
    /// `connection` outlives the statement.
    SqliteStatement(SqliteConnection& connection, const std::string& text);

    /// Values of the places from 1 on.
    void bind(int place, ryv::CStringView text);
    void bind(int place, std::int64_t number);

    /// True when there is another row.
    bool next();

    /// Runs a statement that gives no rows; its places can be given other values then.
    bool run();

    int columnCount() const { return sqlite3_column_count(statement_.get()); }
    ryv::CString columnName(int column) const;
    ryv::CString text(int column) const; ///< empty for NULL
    std::int64_t number(int column) const { return sqlite3_column_int64(statement_.get(), column); }

private:
    struct Finalize {
        void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
    };

    SqliteConnection& connection_;
    std::unique_ptr<sqlite3_stmt, Finalize> statement_;
};

} // namespace drafta
