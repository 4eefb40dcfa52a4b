#include "model/project.h"

#include "base/at_end.h"
#include "base/fold.h"
#include "base/text.h"
#include "bridge/platform.h"
#include "bridge/project_calls.h"

namespace ryv {

namespace {
constexpr int linkedProjectSetting = 39;
constexpr int mostAttempts = 5; // to read while LISP keeps changing the project
} // namespace

RyvPrmProject::RyvPrmProject() = default;
RyvPrmProject::~RyvPrmProject() = default;

RyvPrmProject::ReadResult RyvPrmProject::read(CStringView path, int) {
    projectId_ = replaceAll(path, u'/', u'\\');
    return readRepeatedly(Unwritten::dropped);
}

RyvPrmProject::ReadResult RyvPrmProject::readAfterNotice() {
    return readRepeatedly(Unwritten::kept);
}

RyvPrmProject::ReadResult RyvPrmProject::readRepeatedly(Unwritten unwritten) {
    for (int attempt = 0; attempt < mostAttempts; ++attempt) {
        bool again = false;
        const ReadResult result = readOnce(unwritten, again);
        if (!again)
            return result;
    }
    return failBusy();
}

RyvPrmProject::ReadResult RyvPrmProject::readOnce(Unwritten unwritten, bool& again) {
    if (writing_ > 0)
        return failBusy(); // LISP that is asked while writing must not take away what is to be written
    const auto fresh = std::make_shared<RyvPrmKQPFiler>(projectId_, false, true);
    const bool readable = fresh->isOpen() && fresh->readProject();
    noteErrorOf(*fresh);
    if (!readable)
        return ReadResult::failed;
    if (isBeingWritten(*fresh))
        return failBusy();
    if (isWhatWeReadOrWrote(*fresh) && (!changedInMemory_ || unwritten == Unwritten::kept))
        return ReadResult::unchanged;
    const std::uint64_t before = generation_;
    RyvPrmProjectData data;
    fresh->fillFromSections(data); // asks LISP for defaults
    again = generation_ != before || writing_ > 0;
    if (again)
        return ReadResult::failed;
    fresh->closeProject();
    data_.swap(data);
    filer_ = fresh;
    changedInMemory_ = false;
    ++generation_;
    return ReadResult::replaced;
}

RyvPrmProject::ReadResult RyvPrmProject::failBusy() {
    lastError_ = RyvPmUtilsKQPFiler::cannotRead;
    lastStatus_ = {FileError::busy, 0};
    lastFile_ = projectId_;
    return ReadResult::failed;
}

void RyvPrmProject::noteErrorOf(const RyvPrmKQPFiler& filer) {
    lastError_ = filer.getLastError();
    lastStatus_ = filer.lastStatus();
    lastFile_ = filer.lastFile();
}

void RyvPrmProject::forgetLastError() noexcept {
    lastError_ = RyvPmUtilsKQPFiler::noError;
    lastStatus_ = {};
    lastFile_.clear();
}

/// This program's writer never makes an empty file, but one that is written in place is empty for a moment.
bool RyvPrmProject::isBeingWritten(const RyvPrmKQPFiler& fresh) const {
    const std::optional<Fingerprint>& now = fresh.knownContent();
    const bool hadContent = filer_ && filer_->knownContent() && filer_->knownContent()->size > 0;
    return hadContent && now && now->size == 0;
}

bool RyvPrmProject::isWhatWeReadOrWrote(const RyvPrmKQPFiler& fresh) const {
    return filer_ && filer_->projectPath() == fresh.projectPath() && filer_->knownContent() &&
           fresh.knownContent() && *filer_->knownContent() == *fresh.knownContent();
}

bool RyvPrmProject::isFileUntouched() const {
    FileInformation now;
    if (!filer_ || !filer_->knownContent() || !platform().os.files->information(projectId_, now).ok())
        return false;
    const Fingerprint& known = *filer_->knownContent();
    return known.device == now.device && known.inode == now.inode && known.size == now.size &&
           known.modifiedNanoseconds == now.modifiedNanoseconds;
}

bool RyvPrmProject::write(RyvPrmKQPFiler& filer, CStringView path) {
    ++writing_;
    const AtEnd end([this] { --writing_; }); // LISP may be broken off while it is asked
    const bool written = filer.openProject(path, true) && filer.writeProject(data_);
    noteErrorOf(filer);
    filer.closeProject();
    return written;
}

/// The guard of this project's own file stays as it is.
bool RyvPrmProject::writeCopy(CStringView path) {
    RyvPrmKQPFiler other(true);
    return write(other, path);
}

bool RyvPrmProject::writeProject(const CString* path) {
    if (!filer_)
        filer_ = std::make_shared<RyvPrmKQPFiler>(true);
    const std::shared_ptr<RyvPrmKQPFiler> filer = filer_;
    const CString target = path ? replaceAll(*path, u'/', u'\\') : projectId_;
    const bool own = equalNoCase(target, projectId_);
    const bool written = own ? write(*filer, projectId_) : writeCopy(target);
    if (written && own) {
        changedInMemory_ = false;
        ++generation_;
    }
    if (written)
        lisp::updateDrawingList();
    return written;
}

RyvPrmProjectData& RyvPrmProject::editProjectData() noexcept {
    changedInMemory_ = true;
    ++generation_;
    return data_;
}

bool RyvPrmProject::isOZMProject() const {
    CString link;
    return data_.getMiscProjSettings().getValue(linkedProjectSetting, link) ==
               RyvPmMiscProjSettings::Status::present &&
           !link.empty();
}

bool RyvPrmProject::isLinked() const {
    CString a;
    CString b;
    return isOZMProject() || (filer_ && filer_->getOZMProjectInfo(a, b));
}

bool RyvPrmProject::addFile(std::unique_ptr<RyvPrmFileDetails> details, const CString& trace) {
    if (!details)
        return false;
    RyvPrmFileDetails* const entry = details.get();
    const CString path(details->getFileName());
    if (!editProjectData().addFile(std::move(details), &trace))
        return false;
    if (filer_) {
        filer_->AddFile(path); // without an identifier when the store cannot be understood
        entry->setFileId(filer_->GetFileId(path));
    }
    return true;
}

bool RyvPrmProject::addFiles(const CArray<RyvPrmFileDetails>& drawings, const CString& trace) {
    bool added = true;
    for (const RyvPrmFileDetails& drawing : drawings)
        added = addFile(std::make_unique<RyvPrmFileDetails>(drawing), trace) && added;
    return added;
}

bool RyvPrmProject::removeFile(CStringView path) {
    if (filer_)
        filer_->RemoveFile(path);
    return editProjectData().removeFile(path);
}

bool RyvPrmProject::removeFiles(const CStringArray& paths) {
    if (filer_)
        filer_->RemoveFiles(paths);
    return editProjectData().removeFiles(paths);
}

bool RyvPrmProject::removeSubfolders(const CStringArray& traces) {
    return editProjectData().removeSubfolders(traces);
}

bool RyvPrmProject::replaceFile(CStringView oldPath, CStringView newPath, bool) {
    if (!isFileInProject(oldPath))
        return false;
    if (filer_)
        filer_->RenameFile(oldPath, newPath);
    return editProjectData().replaceFile(oldPath, newPath);
}

bool RyvPrmProject::modifyDetailsForFile(const RyvPrmFileDetails& details) {
    return editProjectData().modifyDetailsForFile(details);
}

bool RyvPrmProject::setMiscProjSettings(const RyvPmMiscProjSettings& settings) {
    editProjectData().setMiscProjSettings(settings);
    return true;
}

std::int32_t RyvPrmProject::GetFileId(CStringView path) {
    return filer_ ? filer_->GetFileId(path) : 0;
}

bool RyvPrmProject::getDetailsForFiles(const CStringArray& paths, CArray<RyvPrmFileDetails>& out) const {
    return data_.getDetailsForFiles(paths, out);
}

bool RyvPrmProject::getDetailsForSubfolders(const CStringArray& traces, CArray<RyvPrmSubfolder*>& out) const {
    return data_.getDetailsForSubfolders(traces, out);
}

bool RyvPrmProject::getSubfolderByTrace(CStringView trace, RyvPrmSubfolder*& subfolder) const {
    subfolder = data_.findSubfolder(trace);
    return subfolder != nullptr;
}

bool RyvPrmProject::isFileInProject(CStringView path, bool* isReferenceOnly) const {
    return data_.isFileInProject(path, isReferenceOnly);
}

} // namespace ryv
