#include "siblings/stdio_file_ex.h"

#include "base/encoding.h"

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

/// Asks for one byte more than a record has, so that a longer one shows.
FileStatus readBytes(OpenFile& file, std::string& bytes) {
    bytes.resize(RyvStdioFileEx::longestRecord + 1);
    std::size_t count = 0;
    const FileStatus status = file.read(bytes, count);
    bytes.resize(count);
    return status.ok() && count > RyvStdioFileEx::longestRecord ? FileStatus{FileError::tooLarge, 0} : status;
}

} // namespace

FileStatus readBinaryRecord(OpenFile& file, CString& record) {
    std::string bytes;
    const FileStatus status = readBytes(file, bytes);
    if (status.ok())
        record = decodeUtf16(bytes, false);
    return status;
}

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
    if (binary_)
        return readBinaryRecord(file_, record);
    std::string bytes;
    const FileStatus status = readBytes(file_, bytes);
    if (status.ok())
        record = decodeUtf8(bytes);
    return status;
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
