#include "embedded/database/sqlite_table.h"

#include "base/encoding.h"
#include "embedded/database/sqlite_connection.h"

namespace drafta {

namespace {

constexpr std::chrono::milliseconds patience{500}; // with another process that is writing
constexpr std::size_t mostUnits = std::size_t{64} << 20;

std::string quoted(ryv::CStringView name) {
    std::string text = "\"";
    for (const char each : ryv::toUtf8(name))
        text += each == '"' ? std::string(2, each) : std::string(1, each);
    return text + '"';
}

DatabaseTable columnsOf(const SqliteStatement& statement) {
    ryv::CStringArray names;
    for (int i = 0; i < statement.columnCount(); ++i)
        names.push_back(statement.columnName(i));
    return DatabaseTable(std::move(names));
}

} // namespace

std::optional<DatabaseTable> readSqliteTable(const std::string& native, ryv::CStringView table,
    std::chrono::milliseconds time, ryv::CString& problem) {
    SqliteConnection connection(native, SqliteConnection::Mode::read, patience);
    connection.limitTime(time);
    connection.run("PRAGMA cell_size_check = ON");
    SqliteStatement statement(connection, "SELECT * FROM main." + quoted(table));
    std::optional<DatabaseTable> result;
    if (connection.ok())
        result = columnsOf(statement);
    std::size_t units = 0;
    while (units <= mostUnits && statement.next())
        for (int i = 0; i < statement.columnCount(); ++i) {
            ryv::CString text = statement.text(i);
            units += text.size();
            result->addField(std::move(text));
        }
    if (connection.code() == SQLITE_DONE)
        return result;
    problem = connection.ok()                         ? u"it holds too much for a project database"
              : connection.code() == SQLITE_INTERRUPT ? u"reading it takes too long"
                                                      : connection.problem();
    return std::nullopt;
}

} // namespace drafta
