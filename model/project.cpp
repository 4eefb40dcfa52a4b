#include "model/project.h"

#include "base/fold.h"
#include "bridge/platform.h"
#include "bridge/project_calls.h"

namespace ryv {

namespace {
constexpr int linkedProjectSetting = 39;
} // namespace

RyvPrmProject::RyvPrmProject() = default;
RyvPrmProject::~RyvPrmProject() = default;

RyvPrmProject::ReadResult RyvPrmProject::read(CStringView path, int) {
    projectId_ = path;
    if (writing_ > 0)
        return ReadResult::failed; // LISP that is asked while writing must not take away what is to be
                                   // written
    const CString id = projectId_;
    const auto fresh = std::make_shared<RyvPrmKQPFiler>(id, false, true);
    const bool opened = fresh->isOpen() && fresh->readProject();
    lastError_ = fresh->getLastError();
    if (!opened || isBeingWritten(*fresh))
        return ReadResult::failed;
    if (isWhatWeHold(*fresh))
        return ReadResult::unchanged;
    RyvPrmProjectData data;
    fresh->fillFromSections(data); // asks LISP for defaults
    if (writing_ > 0)
        return ReadResult::failed;
    fresh->closeProject();
    data_.swap(data);
    filer_ = fresh;
    changedInMemory_ = false;
    return ReadResult::replaced;
}

/// This program's writer never makes an empty file, but one that is written in place is empty for a moment.
bool RyvPrmProject::isBeingWritten(const RyvPrmKQPFiler& fresh) const {
    const std::optional<Fingerprint>& now = fresh.knownContent();
    const bool hadContent = filer_ && filer_->knownContent() && filer_->knownContent()->size > 0;
    return hadContent && now && now->size == 0;
}

bool RyvPrmProject::isWhatWeHold(const RyvPrmKQPFiler& fresh) const {
    return filer_ && !changedInMemory_ && filer_->projectPath() == fresh.projectPath() &&
           filer_->knownContent() && fresh.knownContent() && *filer_->knownContent() == *fresh.knownContent();
}

bool RyvPrmProject::write(RyvPrmKQPFiler& filer, CStringView path) {
    const bool written = filer.openProject(path, true) && filer.writeProject(data_);
    lastError_ = filer.getLastError();
    filer.closeProject();
    return written;
}

bool RyvPrmProject::writeProject(const CString* path) {
    if (!filer_)
        filer_ = std::make_shared<RyvPrmKQPFiler>(true);
    const std::shared_ptr<RyvPrmKQPFiler> filer = filer_;
    const bool own = !path || equalNoCase(*path, projectId_);
    bool written = false;
    ++writing_;
    if (own) {
        written = write(*filer, projectId_);
    } else {
        RyvPrmKQPFiler other(true); // the guard of this project's own file stays as it is
        written = write(other, *path);
    }
    --writing_;
    if (written && own)
        changedInMemory_ = false;
    if (written)
        lisp::updateDrawingList();
    return written;
}

RyvPrmProjectData& RyvPrmProject::editProjectData() noexcept {
    changedInMemory_ = true;
    return data_;
}

bool RyvPrmProject::isOZMProject() const {
    CString link;
    return data_.getMiscProjSettings().getValue(linkedProjectSetting, link) ==
               RyvPmMiscProjSettings::Status::present &&
           !link.empty();
}

bool RyvPrmProject::addFile(std::unique_ptr<RyvPrmFileDetails> details, const CString& trace) {
    if (!details)
        return false;
    if (filer_) {
        filer_->AddFile(details->getFileName());
        details->setFileId(filer_->GetFileId(details->getFileName()));
    }
    return editProjectData().addFile(std::move(details), &trace);
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
