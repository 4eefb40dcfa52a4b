#include "embedded/database/mdb_table.h"

#include "base/encoding.h"
#include "embedded/database/mdb_frames.h"

#include <algorithm>

namespace drafta {

namespace {

constexpr ryv::CStringView nonsense = u"it is damaged, and its reader failed";

/// Takes the reader's output apart. After a failure nothing more is taken.
class FrameReader {
public:
    explicit FrameReader(std::string_view bytes) : rest_(bytes) {}

    bool failed() const noexcept { return failed_; }
    bool atEnd() const noexcept { return rest_.empty(); }

    char kind() { return take(1) ? taken_.front() : '\0'; }

    std::size_t number() {
        std::size_t value = 0;
        if (take(4))
            for (std::size_t i = 4; i-- > 0;)
                value = value << 8 | static_cast<unsigned char>(taken_[i]);
        return value;
    }

    /// Names and values are plain text; anything else was read from the wrong place.
    ryv::CString text() {
        if (!take(number()) || !ryv::isValidUtf8(taken_) || hasControls(taken_)) {
            failed_ = true;
            return {};
        }
        return ryv::decodeUtf8(taken_);
    }

private:
    static bool hasControls(std::string_view bytes) {
        return std::any_of(bytes.begin(), bytes.end(), [](char each) {
            return static_cast<unsigned char>(each) < ' ' && each != '\t' && each != '\r' && each != '\n';
        });
    }

    bool take(std::size_t count) {
        failed_ = failed_ || count > rest_.size();
        taken_ = failed_ ? std::string_view() : rest_.substr(0, count);
        rest_.remove_prefix(taken_.size());
        return !failed_;
    }

    std::string_view rest_;
    std::string_view taken_;
    bool failed_ = false;
};

DatabaseTable readColumns(FrameReader& frames) {
    ryv::CStringArray columns;
    for (std::size_t left = frames.number(); left != 0 && !frames.failed(); --left)
        columns.push_back(frames.text());
    return DatabaseTable(std::move(columns));
}

/// Rows and the end; nothing when the output is not whole.
std::optional<DatabaseTable> readRows(FrameReader& frames, DatabaseTable table, ryv::CString& problem) {
    while (!frames.failed()) {
        switch (frames.kind()) {
        case frames::row:
            for (std::size_t i = 0; i < table.columnCount(); ++i)
                table.addField(frames.text());
            break;
        case frames::end:
            if (frames.number() == table.rowCount() && !frames.failed() && frames.atEnd())
                return table;
            return std::nullopt;
        case frames::problem:
            if (ryv::CString text = frames.text(); !frames.failed())
                problem = std::move(text);
            return std::nullopt;
        default:
            return std::nullopt;
        }
    }
    return std::nullopt;
}

std::optional<DatabaseTable> tableIn(std::string_view output, ryv::CString& problem) {
    problem = nonsense;
    FrameReader frames(output);
    if (output.starts_with(frames::problem))
        return readRows(frames, DatabaseTable(), problem);
    if (frames.kind() != frames::columns)
        return std::nullopt;
    DatabaseTable table = readColumns(frames);
    return readRows(frames, std::move(table), problem);
}

ryv::CStringView describe(ReaderEnd end) {
    switch (end) {
    case ReaderEnd::timedOut:
        return u"reading it takes too long; it may be damaged";
    case ReaderEnd::tooMuch:
        return u"it holds too much for a project database";
    case ReaderEnd::notStarted:
        return u"the program that reads such files, drafta-mdb-reader, cannot be started";
    case ReaderEnd::failed:
    case ReaderEnd::complete:
        break;
    }
    return nonsense;
}

ReadFault faultOf(ReaderEnd end) {
    if (end == ReaderEnd::notStarted)
        return ReadFault::ofReader;
    return end == ReaderEnd::timedOut ? ReadFault::ofTime : ReadFault::ofFile;
}

} // namespace

std::optional<DatabaseTable> readMdbTable(const std::string& reader, int file, ryv::CStringView table,
    const ReaderLimits& limits, ryv::CString& problem, ReadFault& fault) {
    std::string output;
    const ReaderEnd end = runReader(reader, {ryv::toUtf8(table)}, file, limits, output);
    fault = faultOf(end);
    if (end == ReaderEnd::complete)
        return tableIn(output, problem);
    problem = describe(end);
    return std::nullopt;
}

} // namespace drafta
