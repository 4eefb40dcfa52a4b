// drafta-mdb-reader: writes the rows of one table of the Jet database on standard input to standard output.
// The library that it reads with can be led astray by damage in a file. So that happens here, in a process
// with little memory and time and nothing to write to, and the host looks at what comes out.
#include "embedded/database/mdb_frames.h"

#include <mdbtools.h>

#include <csignal>
#include <cstring>
#include <memory>
#include <string>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace {

namespace frames = drafta::frames;

struct CloseMdb {
    void operator()(MdbHandle*) const {} // the process ends, and damaged tables are not walked again
};
using Database = std::unique_ptr<MdbHandle, CloseMdb>;

constexpr std::size_t bytesAtOnce = std::size_t{1} << 16;
constexpr rlim_t memory = rlim_t{128} << 20; // besides the file
constexpr rlim_t seconds = 20;               // the host's own limit is shorter, but it may be gone

void limit(__rlimit_resource resource, rlim_t value) {
    const rlimit both{value, value};
    ::setrlimit(resource, &both);
}

void limitProcess() {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    limit(RLIMIT_CORE, 0);
    limit(RLIMIT_FSIZE, 0);
    limit(RLIMIT_CPU, seconds);
}

void writeAll(std::string& bytes) {
    std::string_view rest = bytes;
    while (!rest.empty()) {
        const ssize_t count = ::write(STDOUT_FILENO, rest.data(), rest.size());
        if (count <= 0)
            ::_exit(1);
        rest.remove_prefix(static_cast<std::size_t>(count));
    }
    bytes.clear();
}

[[noreturn]] void leave(std::string_view problem) {
    std::string out(1, frames::problem);
    frames::putText(out, problem);
    writeAll(out);
    ::_exit(0);
}

/// The whole file, as it was at one moment as far as its size and time tell.
std::string readInput() {
    struct stat before {};
    struct stat after {};
    if (::fstat(STDIN_FILENO, &before) != 0)
        leave("it cannot be read");
    limit(RLIMIT_AS, memory + static_cast<rlim_t>(before.st_size));
    std::string content(static_cast<std::size_t>(before.st_size), '\0');
    std::size_t size = 0;
    while (size < content.size()) {
        const ssize_t count =
            ::pread(STDIN_FILENO, content.data() + size, content.size() - size, static_cast<off_t>(size));
        if (count < 0)
            leave("it cannot be read");
        if (count == 0)
            break;
        size += static_cast<std::size_t>(count);
    }
    const bool told = ::fstat(STDIN_FILENO, &after) == 0;
    if (!told || size != content.size() || after.st_size != before.st_size ||
        after.st_mtim.tv_sec != before.st_mtim.tv_sec || after.st_mtim.tv_nsec != before.st_mtim.tv_nsec)
        leave("it is being written now");
    return content;
}

/// Long texts and objects lie outside of their rows, and nobody asks for them.
bool isPlain(int kind) {
    switch (kind) {
    case MDB_BOOL:
    case MDB_BYTE:
    case MDB_INT:
    case MDB_LONGINT:
    case MDB_MONEY:
    case MDB_FLOAT:
    case MDB_DOUBLE:
    case MDB_DATETIME:
    case MDB_TEXT:
    case MDB_NUMERIC:
        return true;
    default:
        return false;
    }
}

MdbTableDef* definitionOf(MdbHandle& database, const std::string& name) {
    MdbCatalogEntry* const entry = mdb_get_catalogentry_by_name(&database, name.c_str());
    if (!entry || entry->object_type != MDB_TABLE)
        leave("it has no table " + name);
    return mdb_read_table(entry);
}

/// A table with the places that its values are put into, row by row.
class Table {
public:
    Table(MdbHandle& database, const std::string& name) : table_(definitionOf(database, name)) {
        if (!table_)
            leave("it is damaged: the definition of table " + name + " cannot be read");
        if (!mdb_read_columns(table_))
            leave("it is damaged: the columns of table " + name + " cannot be read");
        for (unsigned i = 0; i < table_->columns->len; ++i)
            bind(i, *static_cast<MdbColumn*>(g_ptr_array_index(table_->columns, i)));
        mdb_rewind_table(table_);
    }

    /// As many rows as the table says: a damaged one delivers others.
    void write() {
        std::string out(1, frames::columns);
        frames::putNumber(out, names_.size());
        for (const std::string& name : names_)
            frames::putText(out, name);
        std::size_t rows = 0;
        for (; mdb_fetch_row(table_) != 0; ++rows) {
            if (rows == table_->num_rows)
                leave("it is damaged: a table has more rows than it says");
            writeRow(out);
        }
        if (rows != table_->num_rows)
            leave("it is damaged: only " + std::to_string(rows) + " of " + std::to_string(table_->num_rows) +
                  " rows can be read");
        out += frames::end;
        frames::putNumber(out, rows);
        writeAll(out);
    }

private:
    void bind(unsigned index, const MdbColumn& column) {
        if (!isPlain(column.col_type))
            return;
        names_.emplace_back(column.name, ::strnlen(column.name, sizeof column.name));
        values_.push_back(std::make_unique<char[]>(MDB_BIND_SIZE));
        mdb_bind_column(table_, static_cast<int>(index) + 1, values_.back().get(), nullptr);
    }

    void writeRow(std::string& out) {
        out += frames::row;
        for (const auto& value : values_)
            frames::putText(out, {value.get(), ::strnlen(value.get(), MDB_BIND_SIZE)});
        if (out.size() >= bytesAtOnce)
            writeAll(out);
    }

    MdbTableDef* table_;
    std::vector<std::string> names_;
    std::vector<std::unique_ptr<char[]>> values_;
};

} // namespace

int main(int argc, char** argv) {
    if (argc != 2 || ::isatty(STDIN_FILENO) != 0)
        return 2;
    limitProcess();
    std::string content = readInput();
    const Database database(mdb_open_buffer(content.data(), content.size(), MDB_NOFLAGS));
    if (!database)
        leave("it cannot be opened as a database");
    mdb_set_date_fmt(database.get(), "%Y-%m-%d %H:%M:%S");
    mdb_set_boolean_fmt_numbers(database.get());
    if (!mdb_read_catalog(database.get(), MDB_ANY))
        leave("its list of tables cannot be read");
    Table(*database, argv[1]).write();
    ::_exit(0);
}
