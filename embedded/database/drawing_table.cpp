#include "embedded/database/drawing_table.h"

#include "base/text.h"
#include "embedded/database/database_file.h"
#include "embedded/database/sqlite_connection.h"
#include "embedded/os/file_error.h"

#include <cstdio>
#include <unistd.h>

namespace drafta {

namespace {

constexpr std::chrono::milliseconds patience{10}; // the main thread waits

constexpr const char* schema = "BEGIN;"
                               "CREATE TABLE FILETIME (DWGNAME TEXT PRIMARY KEY, FTIME INTEGER, SH TEXT, "
                               "SHDWGNAM TEXT, IEC_I TEXT, IEC_L TEXT, FSIZE INTEGER);"
                               "COMMIT";

TableResult resultOf(const SqliteConnection& connection, ryv::CString& problem) {
    if (connection.ok())
        return TableResult::good;
    problem = connection.problem();
    switch (connection.code()) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return TableResult::busy;
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
        return TableResult::damaged;
    default:
        return TableResult::failed;
    }
}

TableResult systemFailure(ryv::CString& problem) {
    problem = ryv::fromAscii(describe(lastFailure().error));
    return TableResult::failed;
}

/// Puts a file that is ready in its place, but not over another one: a process that was faster may have
/// written it already. Where a file cannot have two names it is renamed.
bool putInPlace(const std::string& from, const std::string& to) {
    if (::link(from.c_str(), to.c_str()) == 0 || errno == EEXIST)
        return true;
    return ::access(to.c_str(), F_OK) == 0 || ::rename(from.c_str(), to.c_str()) == 0;
}

void removeFile(const std::string& native) {
    for (const char* const end : {"-journal", ""})
        ::unlink((native + end).c_str());
}

TableResult writeEmpty(const std::string& native, ryv::CString& problem) {
    SqliteConnection connection(native, SqliteConnection::Mode::create, patience);
    connection.run(("PRAGMA application_id = " + std::to_string(ownApplicationId)).c_str());
    connection.run(schema);
    return resultOf(connection, problem);
}

} // namespace

TableResult DrawingTable::make(ryv::CString& problem) const {
    if (::access(native_.c_str(), F_OK) == 0)
        return TableResult::good;
    const std::string unfinished = native_ + "." + std::to_string(::getpid()) + ".new";
    removeFile(unfinished); // of a process that had our number
    TableResult result = writeEmpty(unfinished, problem);
    if (result == TableResult::good && !putInPlace(unfinished, native_))
        result = systemFailure(problem);
    removeFile(unfinished);
    return result;
}

TableResult DrawingTable::remake(ryv::CString& problem) const {
    removeFile(native_);
    return make(problem);
}

TableResult DrawingTable::readStates(DrawingStates& states, ryv::CString& problem) const {
    SqliteConnection connection(native_, SqliteConnection::Mode::write, patience);
    SqliteStatement rows(connection, "SELECT DWGNAME, FTIME, FSIZE FROM FILETIME");
    while (rows.next())
        states[rows.text(0)] = {rows.number(1), rows.number(2)};
    return resultOf(connection, problem);
}

TableResult DrawingTable::store(const std::vector<DrawingRow>& rows, ryv::CString& problem) const {
    SqliteConnection connection(native_, SqliteConnection::Mode::write, patience);
    connection.run("BEGIN IMMEDIATE");
    SqliteStatement insert(connection, "INSERT OR REPLACE INTO FILETIME VALUES (?, ?, ?, ?, ?, ?, ?)");
    for (const DrawingRow& row : rows) {
        insert.bind(1, row.drawing);
        insert.bind(2, row.state.modifiedNanoseconds);
        int place = 3;
        for (const ryv::CString* const value : {&row.sheet, &row.number, &row.installation, &row.location})
            insert.bind(place++, *value);
        insert.bind(place, row.state.size);
        insert.run();
    }
    connection.run("COMMIT"); // else the end of the connection takes everything back
    return resultOf(connection, problem);
}

TableResult DrawingTable::rename(ryv::CStringView from, ryv::CStringView to, ryv::CString& problem) const {
    SqliteConnection connection(native_, SqliteConnection::Mode::write, patience);
    SqliteStatement update(connection, "UPDATE OR REPLACE FILETIME SET DWGNAME = ? WHERE DWGNAME = ?");
    update.bind(1, to);
    update.bind(2, from);
    update.run();
    return resultOf(connection, problem);
}

} // namespace drafta
