// A file of text, opened, read and written as a whole record.
#pragma once

#include "siblings/open_file.h"

namespace ryv {

/// In binary mode the bytes are those of the text itself: UTF-16, little endian, without a mark, on every
/// machine. In text mode they are UTF-8. Line ends stay as they are in both.
class RyvStdioFileEx {
public:
    /// How a file is opened; flags are combined with "|".
    enum Flags : unsigned {
        modeRead = 0,       ///< an existing file, for reading
        modeWrite = 1,      ///< for reading and writing
        modeCreate = 2,     ///< with modeWrite: made when missing, and emptied unless modeNoTruncate is given
        modeNoTruncate = 4, ///< with modeCreate: what is there stays
        typeBinary = 8,     ///< UTF-16 in place of UTF-8
        modeExclusive = 16  ///< with modeCreate: fails with `exists` when the file is there
    };

    static constexpr std::size_t longestRecord = 65536; ///< bytes

    /// `files` outlives the object.
    explicit RyvStdioFileEx(Files& files) noexcept : file_(files) {}

    /// Opens; a file that was open before is closed first.
    FileStatus Open(CStringView path, unsigned flags);
    bool IsOpen() const noexcept { return file_.isOpen(); }

    /// Reads from the file position to the end. In binary mode an odd byte at the end is left out. `tooLarge`
    /// when there are more bytes than longestRecord; `record` stays as it was after a failure.
    FileStatus ReadRecord(CString& record);

    /// Writes at the file position.
    FileStatus WriteString(CStringView text);

    /// Forces what was written to the device.
    FileStatus Flush() { return file_.sync(); }

    /// Closes and reports what the system says about it.
    FileStatus Close() { return file_.close(); }

    /// The file itself, for locking it and for comparing it with a path.
    OpenFile& file() noexcept { return file_; }

private:
    OpenFile file_;
    bool binary_ = false;
};

/// RyvStdioFileEx::ReadRecord in binary mode, of a file that is open already.
FileStatus readBinaryRecord(OpenFile& file, CString& record);

} // namespace ryv
