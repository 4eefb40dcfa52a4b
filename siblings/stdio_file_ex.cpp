#include "siblings/stdio_file_ex.h"

#include "base/encoding.h"

#include <array>
#include <string>

namespace ryv {

namespace {

OpenMode openModeOf(unsigned flags) {
    if ((flags & RyvStdioFileEx::modeWrite) == 0)
        return OpenMode::read;
    if ((flags & RyvStdioFileEx::modeCreate) == 0)
        return OpenMode::readWrite;
    return (flags & RyvStdioFileEx::modeExclusive) != 0 ? OpenMode::createExclusive : OpenMode::openOrCreate;
}

} // namespace

FileStatus RyvStdioFileEx::Open(CStringView path, unsigned flags) {
    binary_ = (flags & typeBinary) != 0;
    const OpenMode mode = openModeOf(flags);
    const FileStatus opened = file_.open(path, mode);
    if (!opened.ok() || mode != OpenMode::openOrCreate || (flags & modeNoTruncate) != 0)
        return opened;
    const FileStatus emptied = file_.truncate(0);
    if (!emptied.ok())
        static_cast<void>(file_.close());
    return emptied;
}

FileStatus RyvStdioFileEx::ReadRecord(CString& record) {
    std::string bytes;
    std::array<char, 4096> block;
    std::size_t count = 0;
    do {
        const FileStatus status = file_.read(block, count);
        if (!status.ok())
            return status;
        bytes.append(block.data(), count);
    } while (count == block.size());
    record = binary_ ? decodeUtf16(bytes, false) : decodeUtf8(bytes);
    return {};
}

FileStatus RyvStdioFileEx::WriteString(CStringView text) {
    std::string bytes;
    if (binary_)
        encodeUtf16(text, false, bytes);
    else
        encodeUtf8(text, bytes);
    return file_.writeAll(bytes);
}

} // namespace ryv
