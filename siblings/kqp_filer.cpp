#include "siblings/kqp_filer.h"

#include "base/paths.h"
#include "base/text.h"
#include "siblings/atomic_file.h"
#include "siblings/open_file.h"

#include <algorithm>
#include <utility>

namespace ryv {

namespace {

/// UTF-8 with a mark holds every text whatsoever.
std::string markedUtf8(std::string_view utf8) {
    return std::string(mark(TextEncoding::utf8WithMark)).append(utf8);
}

/// The bytes in the wanted encoding, or with `encoding` changed to UTF-8 with a mark when that encoding lacks
/// a character, or when a reader would take the bytes for another encoding.
std::string encodeAs(std::string utf8, TextEncoding& encoding) {
    std::string bytes;
    if (encoding == TextEncoding::utf8) {
        bytes = std::move(utf8);
        if (detectEncoding(bytes) == TextEncoding::utf8)
            return bytes;
        encoding = TextEncoding::utf8WithMark;
        return markedUtf8(bytes);
    }
    if (encoding == TextEncoding::utf8WithMark)
        return markedUtf8(utf8);
    CodecReport problems;
    bytes = mark(encoding);
    const CString text = decodeUtf8(utf8);
    encode(text, encoding, bytes, &problems);
    const bool readsAlike = detectEncoding(bytes) == encoding || bytes == utf8;
    if (problems.problems == 0 && readsAlike)
        return bytes;
    encoding = TextEncoding::utf8WithMark;
    return markedUtf8(utf8);
}

} // namespace

RyvPmUtilsKQPFiler::RyvPmUtilsKQPFiler(Files& files) : files_(files) {}

RyvPmUtilsKQPFiler::RyvPmUtilsKQPFiler(Files& files, CStringView path, bool forWriting) : files_(files) {
    openProject(path, forWriting);
}

RyvPmUtilsKQPFiler::~RyvPmUtilsKQPFiler() = default;

void RyvPmUtilsKQPFiler::setLastError(ErrorCode error, FileStatus status, CStringView file) {
    lastError_ = error;
    lastStatus_ = status;
    lastFile_ = file;
}

bool RyvPmUtilsKQPFiler::fail(ErrorCode error, FileStatus status, CStringView file) {
    setLastError(error, status, file);
    return false;
}

void RyvPmUtilsKQPFiler::pointTo(CStringView path) {
    if (path == path_)
        return;
    path_ = path;
    folder_ = paths::folderOf(path);
    encoding_ = TextEncoding::utf8;
    known_.reset();
    store_.reset();
}

bool RyvPmUtilsKQPFiler::openProject(CStringView path, bool forWriting) {
    closeProject();
    clearLastError();
    pointTo(path);
    unread_ = FileStatus{};
    if (store_ && !store_->hasUnsavedChanges())
        store_.reset(); // another process may have written it
    if (forWriting ? !examineForWriting() : !examineForReading())
        return false;
    open_ = true;
    forWriting_ = forWriting;
    return true;
}

bool RyvPmUtilsKQPFiler::examineForReading() {
    OpenFile probe(files_);
    const FileStatus status = probe.open(path_, OpenMode::read);
    return status.ok() || fail(cannotOpen, status, path_);
}

/// Finds out whether the file can be replaced, and what it holds unless that is known from before.
bool RyvPmUtilsKQPFiler::examineForWriting() {
    FileInformation information;
    const FileStatus status = files_.information(path_, information);
    if (!status.ok() && status.error != FileError::missing)
        return fail(cannotOpen, status, path_);
    if (status.ok() && (information.readOnly || information.isFolder))
        return fail(cannotOpen, {information.isFolder ? FileError::isFolder : FileError::readOnly, 0}, path_);
    // A left-over that cannot be removed is no reason to refuse: the save itself decides about it again.
    static_cast<void>(sweepLeftover(files_, path_));
    if (known_)
        return true;
    known_.emplace();
    if (!status.ok())
        return true;
    ByteBuffer content;
    const FileStatus read = readWholeFile(files_, path_, content, *known_);
    if (!read.ok()) {
        known_.reset();
        return fail(cannotOpen, read, path_);
    }
    encoding_ = detectEncoding(content.view());
    return true;
}

void RyvPmUtilsKQPFiler::closeProject() {
    open_ = false;
    forWriting_ = false;
    sections_.clear();
}

bool RyvPmUtilsKQPFiler::readProject() {
    sections_.clear();
    if (!open_)
        return fail(notOpen, {}, path_);
    clearLastError();
    ByteBuffer content;
    Fingerprint fingerprint;
    unread_ = readWholeFile(files_, path_, content, fingerprint);
    if (unread_.ok() && !sections_.load(std::move(content), reporter_))
        unread_.error = FileError::tooLarge;
    if (!unread_.ok()) {
        sections_.clear();
        return fail(cannotRead, unread_, path_);
    }
    known_ = fingerprint;
    encoding_ = sections_.encoding();
    return true;
}

bool RyvPmUtilsKQPFiler::commit(std::string utf8) {
    if (!unread_.ok() && unread_.error != FileError::missing)
        return fail(cannotWrite, unread_, path_); // what could not be read is not written over
    TextEncoding encoding = encoding_;
    const std::string bytes = encodeAs(std::move(utf8), encoding);
    const SaveResult result = saveAtomically(files_, {path_, bytes, known_});
    if (result.replaced) {
        known_ = result.written;
        encoding_ = encoding;
    }
    const FileStatus stored = store_ && result.replaced ? store_->save() : FileStatus{};
    if (!result.ok())
        return fail(result.status.error == FileError::changedOutside ? changedOutside : cannotWrite,
            result.status, result.file);
    clearLastError();
    if (!stored.ok())
        setLastError(cannotWriteStore, stored, RyvPmUtilsRypxFiler::storePathFor(path_));
    return true;
}

void RyvPmUtilsKQPFiler::drawingPathOf(CStringView line, CString& path) const {
    CStringView text = trim(line);
    if (text.starts_with(u'"'))
        text.remove_prefix(1);
    CString backslashed;
    if (findUnit(text, u'/') < text.size())
        text = backslashed = replaceAll(text, u'/', u'\\');
    if (!paths::isRelative(text) || !paths::combineInto(path, folder_, text))
        path = text;
}

RyvPmUtilsRypxFiler& RyvPmUtilsKQPFiler::store() {
    if (!store_)
        store_ = std::make_unique<RyvPmUtilsRypxFiler>(files_, path_);
    return *store_;
}

bool RyvPmUtilsKQPFiler::hasProject() {
    return !path_.empty() || fail(notOpen, {}, {});
}

bool RyvPmUtilsKQPFiler::AddFile(CStringView path) {
    return hasProject() && store().add(path) != 0;
}

bool RyvPmUtilsKQPFiler::RemoveFile(CStringView path) {
    if (!hasProject())
        return false;
    store().remove(path);
    return true;
}

bool RyvPmUtilsKQPFiler::RemoveFiles(const CStringArray& paths) {
    return std::all_of(paths.begin(), paths.end(), [this](const CString& path) { return RemoveFile(path); });
}

bool RyvPmUtilsKQPFiler::RenameFile(CStringView from, CStringView to) {
    if (!hasProject())
        return false;
    store().rename(from, to);
    return true;
}

bool RyvPmUtilsKQPFiler::initMiscProjSettings(RyvPmMiscProjSettings& misc) const {
    sections_.initMiscProjSettings(misc);
    return true;
}

std::int32_t RyvPmUtilsKQPFiler::GetFileId(CStringView path) {
    return hasProject() ? store().GetFileId(path) : 0;
}

bool RyvPmUtilsKQPFiler::CleanupProjectData() {
    if (!open_)
        return fail(notOpen, {}, path_);
    // Read aside: what this filer has read, and expects to find when it writes, stays as it is.
    ByteBuffer content;
    Fingerprint fingerprint;
    const FileStatus read = readWholeFile(files_, path_, content, fingerprint);
    if (!read.ok())
        return fail(cannotRead, read, path_);
    ProjectSections now;
    if (!now.load(std::move(content), nullptr))
        return fail(cannotRead, {FileError::tooLarge, 0}, path_);
    CStringArray listed;
    for (std::size_t i = 0; i < now.drawingLineCount(); ++i)
        if (now.drawingLine(i).front() != u'=')
            drawingPathOf(now.drawingLine(i), listed.emplace_back());
    store().keepOnly(listed);
    const FileStatus status = store().save();
    return status.ok() || fail(cannotWriteStore, status, RyvPmUtilsRypxFiler::storePathFor(path_));
}

} // namespace ryv
