#include "embedded/lisp/lisp_file.h"

#include "siblings/file_content.h"

#include <array>

namespace drafta::lisp {

namespace {

constexpr std::size_t flushAt = std::size_t{1} << 16; // units

} // namespace

ryv::FileStatus readText(Services& services, ryv::CStringView path, std::size_t limit, ryv::CString& text,
    ryv::TextEncoding& encoding) {
    ryv::FileInformation information;
    if (const ryv::FileStatus status = services.files().information(path, information); !status.ok())
        return status;
    if (information.size > limit)
        return {ryv::FileError::tooLarge, 0};
    ryv::ByteBuffer content;
    ryv::Fingerprint fingerprint;
    const ryv::FileStatus status = ryv::readWholeFile(services.files(), path, content, fingerprint);
    if (status.ok())
        text = ryv::decodeDetecting(content.view(), encoding);
    return status;
}

std::unique_ptr<LispFile> LispFile::open(
    Services& services, ryv::CStringView path, ryv::CStringView mode, std::size_t limit) {
    std::unique_ptr<LispFile> file(new LispFile(services, path));
    bool opened = false;
    if (mode == u"r")
        opened = readText(services, path, limit, file->text_, file->encoding_).ok();
    else if (mode == u"w")
        opened = file->file_.open(path, ryv::OpenMode::openOrCreate).ok() && file->file_.truncate(0).ok();
    else if (mode == u"a")
        opened = file->startAppending(services, limit);
    return opened ? std::move(file) : nullptr;
}

/// The port appends by writing behind what was read.
bool LispFile::startAppending(Services& services, std::size_t limit) {
    ryv::CString before;
    const ryv::FileStatus status = readText(services, name_, limit, before, encoding_);
    if (!status.ok() && status.error != ryv::FileError::missing)
        return false;
    if (!file_.open(name_, ryv::OpenMode::openOrCreate).ok())
        return false;
    std::array<char, 4096> skipped;
    std::size_t count = skipped.size();
    while (count == skipped.size())
        if (!file_.read(skipped, count).ok())
            return false;
    return true;
}

LispFile::~LispFile() {
    close();
}

std::optional<char16_t> LispFile::readUnit() {
    if (isWritable() || position_ == text_.size())
        return std::nullopt;
    return text_[position_++];
}

std::optional<ryv::CString> LispFile::readLine() {
    if (isWritable() || position_ == text_.size())
        return std::nullopt;
    const std::size_t end = std::min(text_.find(u'\n', position_), text_.size());
    ryv::CString line = text_.substr(position_, end - position_);
    if (!line.empty() && line.back() == u'\r')
        line.pop_back();
    position_ = std::min(end + 1, text_.size());
    return line;
}

/// An old file that is appended to keeps its encoding, and what that lacks is refused, not replaced.
bool LispFile::canHold(ryv::CStringView text) const {
    if (encoding_ != ryv::TextEncoding::windows1252)
        return true;
    std::string bytes;
    ryv::CodecReport report;
    ryv::encode(text, encoding_, bytes, &report);
    return report.problems == 0;
}

bool LispFile::write(ryv::CStringView text) {
    if (!isWritable() || !canHold(text))
        return false;
    text_ += text;
    return text_.size() < flushAt || flush();
}

/// Half a surrogate pair at the end would be encoded without its other half, so it waits.
bool LispFile::flush() {
    std::string bytes;
    const bool splits = !text_.empty() && (text_.back() & 0xFC00) == 0xD800;
    const std::size_t length = text_.size() - (splits ? 1 : 0);
    ryv::encode(ryv::CStringView(text_).substr(0, length), encoding_, bytes);
    text_.erase(0, length);
    return file_.writeAll(bytes).ok();
}

bool LispFile::close() {
    if (!isWritable())
        return true;
    bool written = flush();
    if (!text_.empty()) {
        std::string bytes;
        ryv::encode(text_, encoding_, bytes);
        written = file_.writeAll(bytes).ok() && written;
        text_.clear();
    }
    return file_.close().ok() && written;
}

} // namespace drafta::lisp
