#include "embedded/database/database_file.h"

#include "base/encoding.h"
#include "base/text.h"
#include "embedded/os/file_error.h"
#include "toolkit/plain_text.h"

#include <array>
#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

namespace drafta {

namespace {

using namespace std::string_view_literals;

constexpr std::uint64_t largestFile = std::uint64_t{256} << 20;
constexpr std::size_t headerSize = 100; // of SQLite; the pages of both kinds are larger
constexpr std::size_t applicationIdAt = 68;
constexpr std::size_t signatureSize = 16;
constexpr std::string_view jetSignature = "\0\1\0\0Standard Jet"sv;
constexpr std::string_view sqliteSignature = "SQLite format 3\0"sv;
static_assert(jetSignature.size() == signatureSize && sqliteSignature.size() == signatureSize);

using Header = std::array<char, headerSize>;

std::uint32_t applicationId(const Header& header) {
    std::uint32_t id = 0;
    for (std::size_t i = 0; i < 4; ++i)
        id = id << 8 | static_cast<unsigned char>(header[applicationIdAt + i]);
    return id;
}

/// False when the header is of no known kind.
bool readHeader(DatabaseFile& file) {
    Header header{};
    const ssize_t count = ::pread(file.descriptor.get(), header.data(), header.size(), 0);
    if (count < static_cast<ssize_t>(header.size()))
        return false;
    const std::string_view signature(header.data(), signatureSize);
    file.kind = signature == sqliteSignature ? DatabaseKind::sqlite : DatabaseKind::jet;
    file.isOwn = file.kind == DatabaseKind::sqlite && applicationId(header) == ownApplicationId;
    // Closing a file gives up all locks that this process has on it, so SQLite's files are not kept open
    // here.
    if (file.kind == DatabaseKind::sqlite)
        file.descriptor.reset();
    return signature == sqliteSignature || signature == jetSignature;
}

const char* problemOf(const struct stat& status) {
    if (S_ISDIR(status.st_mode))
        return describe(ryv::FileError::isFolder);
    if (!S_ISREG(status.st_mode))
        return describe(ryv::FileError::notRegular);
    return static_cast<std::uint64_t>(status.st_size) > largestFile
               ? "it is too large to be a project database"
               : nullptr;
}

const char* openFile(const std::string& native, DatabaseFile& file) {
    // Without waiting: a pipe that nobody writes to may stand there.
    file.descriptor = Descriptor(::open(native.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    struct stat status {};
    if (!file.descriptor.isOpen() || ::fstat(file.descriptor.get(), &status) != 0)
        return describe(lastFailure().error);
    if (const char* const problem = problemOf(status))
        return problem;
    file.device = status.st_dev;
    file.inode = status.st_ino;
    file.size = static_cast<std::uint64_t>(status.st_size);
    file.modifiedNanoseconds = std::int64_t{status.st_mtim.tv_sec} * 1'000'000'000 + status.st_mtim.tv_nsec;
    return readHeader(file) ? nullptr : "it is no project database";
}

} // namespace

ryv::CString databaseProblem(const std::string& native, ryv::CStringView reason) {
    return ryv::onOneLine(ryv::nameFromBytes(native) + u": " + ryv::CString(reason));
}

bool openDatabaseFile(const std::string& native, DatabaseFile& file, ryv::CString& problem) {
    const char* const reason = openFile(native, file);
    if (!reason)
        return true;
    problem = databaseProblem(native, ryv::fromAscii(reason));
    return false;
}

} // namespace drafta
