#include "siblings/stdio_file_ex.h"

#include "base/encoding.h"

#include <array>
#include <string>

namespace ryv {

FileStatus RyvStdioFileEx::Open(CStringView path, unsigned flags) {
    binary_ = (flags & typeBinary) != 0;
    const bool create = (flags & modeWrite) != 0 && (flags & modeCreate) != 0;
    const OpenMode mode = create                     ? OpenMode::openOrCreate
                          : (flags & modeWrite) != 0 ? OpenMode::readWrite
                                                     : OpenMode::read;
    const FileStatus opened = file_.open(path, mode);
    if (!opened.ok() || !create || (flags & modeNoTruncate) != 0)
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
