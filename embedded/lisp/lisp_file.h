// Text files as LISP code opens them.
#pragma once

#include "base/encoding.h"
#include "embedded/lisp/services.h"
#include "siblings/open_file.h"

#include <memory>

namespace drafta::lisp {

/// The text of a file: UTF-8, UTF-16 with a mark, or else Windows-1252. `limit` is in bytes; a larger file
/// fails with `tooLarge`.
ryv::FileStatus readText(Services& services, ryv::CStringView path, std::size_t limit, ryv::CString& text,
    ryv::TextEncoding& encoding);

/// A file that is read from the text it had when it was opened, or written to. What is written reaches the
/// file in large pieces, and all of it when it is closed or destroyed.
class LispFile {
public:
    /// Mode "r" reads an existing file, "w" makes one or empties it, "a" writes at its end, in the encoding
    /// that it has; new files are UTF-8. Null when that fails, or the mode is none of these.
    static std::unique_ptr<LispFile> open(
        Services& services, ryv::CStringView path, ryv::CStringView mode, std::size_t limit);
    LispFile(const LispFile&) = delete;
    LispFile& operator=(const LispFile&) = delete;
    ~LispFile();

    /// The next unit or line without its end; nothing at the end of the file.
    std::optional<char16_t> readUnit();
    std::optional<ryv::CString> readLine();
    /// False when the file is not open for writing, its encoding lacks a character, or writing failed.
    bool write(ryv::CStringView text);
    /// False when something written is lost.
    bool close();

    const ryv::CString& name() const noexcept { return name_; }
    bool isWritable() const noexcept { return file_.isOpen(); }
    /// Bytes of memory that it takes.
    std::size_t bytes() const noexcept { return text_.capacity() * sizeof(char16_t); }

private:
    LispFile(Services& services, ryv::CStringView path) : name_(path), file_(services.files()) {}
    bool startAppending(Services& services, std::size_t limit);
    bool flush();
    bool canHold(ryv::CStringView text) const;

    ryv::CString name_;
    ryv::OpenFile file_; // for writing only
    ryv::TextEncoding encoding_ = ryv::TextEncoding::utf8;
    ryv::CString text_; // to be read, or not written yet
    std::size_t position_ = 0;
};

} // namespace drafta::lisp
