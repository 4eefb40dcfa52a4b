#include "siblings/atomic_file.h"
#include "base/encoding.h"
#include "base/fold.h"
#include "base/paths.h"
#include "siblings/temporary_file.h"

namespace ryv {

namespace {

constexpr std::size_t longestExtendedName = 120; // bytes; some encrypting file systems take no name above 143
constexpr CStringView suffix = u".saving";

/// Where the last component of a path begins.
std::size_t nameOffset(CStringView path) {
    const std::size_t separator = path.rfind(u'\\');
    return separator == CStringView::npos ? 0 : separator + 1;
}

CString hexadecimal(std::uint64_t number) {
    CString digits(16, u'0');
    for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit, number >>= 4)
        *digit = u"0123456789abcdef"[number & 0xF];
    return digits;
}

/// One save, step by step. Every step returns false after it has put its failure into the result.
class Save {
public:
    Save(Files& files, const SaveRequest& request) : files_(files), request_(request) {}
    SaveResult run();

private:
    bool findTarget();
    bool guardMayHold();
    bool checkGuard();
    bool write(TemporaryFile& temporary);
    void finish(TemporaryFile& temporary);
    bool check(FileStatus status, CStringView file);

    Files& files_;
    const SaveRequest& request_;
    SaveResult result_;
    CString target_;
    bool targetPresent_ = false;
    std::uint64_t targetSize_ = 0;
};

/// Keeps the first failure.
bool Save::check(FileStatus status, CStringView file) {
    if (!status.ok() && result_.ok()) {
        result_.status = status;
        result_.file = file;
    }
    return status.ok();
}

bool Save::findTarget() {
    if (!check(files_.resolve(request_.path, target_), request_.path))
        return false;
    FileInformation information;
    const FileStatus status = files_.information(target_, information);
    if (status.error == FileError::missing)
        return true;
    targetPresent_ = true;
    targetSize_ = information.size;
    FileStatus verdict = status;
    if (status.ok() && information.isFolder)
        verdict.error = FileError::isFolder;
    else if (status.ok() && !information.isRegular)
        verdict.error = FileError::notRegular;
    else if (status.ok() && information.readOnly)
        verdict.error = FileError::readOnly;
    return check(verdict, target_);
}

/// What can be told of the guard without reading: spares writing what cannot be saved.
bool Save::guardMayHold() {
    const bool same = !request_.expected || (targetPresent_ == request_.expected->present &&
                                                (!targetPresent_ || targetSize_ == request_.expected->size));
    return check({same ? FileError::none : FileError::changedOutside, 0}, target_);
}

/// The guard's real look comes last, so that as little time as can be lies between it and the renaming. It
/// reads the whole target: times can be set back, and are too coarse to tell two quick writes apart.
bool Save::checkGuard() {
    if (!request_.expected)
        return true;
    Fingerprint found;
    if (!check(fingerprintOf(files_, target_, found), target_))
        return false;
    return check({found == *request_.expected ? FileError::none : FileError::changedOutside, 0}, target_);
}

/// Attributes first, so that the content of a private file is never open to others, not even for a moment.
bool Save::write(TemporaryFile& temporary) {
    OpenFile& file = temporary.file();
    if (targetPresent_) {
        const FileStatus copied = files_.copyAttributes(target_, file.handle());
        if (copied.error != FileError::missing && !check(copied, temporary.path()))
            return false;
    }
    FileInformation information;
    if (!check(file.writeAll(request_.bytes), temporary.path()) || !check(file.sync(), temporary.path()) ||
        !check(file.information(information), temporary.path()))
        return false;
    result_.written = makeFingerprint(information, request_.bytes);
    return true;
}

/// What comes behind the renaming: a failure is reported, and the new file stays. A file system that cannot
/// force a folder to the device is no failure: nothing more can be done there.
void Save::finish(TemporaryFile& temporary) {
    result_.replaced = true;
    const CString folder = paths::folderOf(target_);
    const FileStatus synced = files_.syncFolder(folder);
    if (synced.error != FileError::unsupported)
        check(synced, folder);
    check(temporary.file().close(), target_);
}

SaveResult Save::run() {
    if (!findTarget())
        return result_;
    TemporaryFile temporary(files_, temporaryNameFor(target_));
    const FileStatus made = temporary.make();
    if (!check(made, temporary.concerned() ? CStringView(temporary.path()) : CStringView(target_)))
        return result_;
    if (guardMayHold() && write(temporary) && checkGuard() && check(temporary.renameTo(target_), target_))
        finish(temporary);
    return result_;
}

} // namespace

SaveResult saveAtomically(Files& files, const SaveRequest& request) {
    return Save(files, request).run();
}

CString temporaryNameFor(CStringView path) {
    const std::size_t offset = nameOffset(path);
    const CStringView name = path.substr(offset);
    CString temporary(path.substr(0, offset));
    temporary += u'.';
    const bool fits = nameToBytes(name).size() <= longestExtendedName;
    temporary += fits ? CString(name) : hexadecimal(contentHash(toUtf8(toUpper(name))));
    return temporary += suffix;
}

FileStatus sweepLeftover(Files& files, CStringView path) {
    CString target;
    if (const FileStatus status = files.resolve(path, target); !status.ok())
        return status;
    Leftover leftover = Leftover::gone;
    const FileStatus status =
        removeUnlocked(files, temporaryNameFor(target), std::chrono::milliseconds(0), leftover);
    return leftover == Leftover::untold ? FileStatus{FileError::unsupported, 0} : status;
}

} // namespace ryv
