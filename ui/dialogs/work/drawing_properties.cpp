#include "ui/dialogs/work/drawing_properties.h"

#include "base/format.h"
#include "base/paths.h"
#include "bridge/platform.h"
#include "manager/file_locks.h"
#include "manager/project_manager.h"
#include "manager/shown_messages.h"
#include "resources/messages.h"
#include "resources/setting_message_numbers.h"
#include "ui/dialogs/sheets/drawing_sheet.h"
#include "ui/dialogs/work/drawing_access.h"
#include "ui/dialogs/work/drawing_block.h"
#include "ui/dialogs/work/drawing_entry.h"
#include "ui/dialogs/work/told_refusal.h"

namespace ryv {

namespace {

/// One run of the sheet.
class DrawingProperties {
public:
    DrawingProperties(CStringView drawing, bool titled)
        : drawing_(drawing), titled_(titled), projectId_(titled ? projectOf(drawing) : CString()),
          projectLocks_(projectId_), entry_(drawing_, projectId_), block_(drawing_, titled_) {}
    void run();

private:
    /// Whether the sheet's values are stored; else the user is asked whether to go back to the sheet.
    enum class Outcome { stored, goesBack, dropped };

    CString name() const { return CString(paths::findFileName(drawing_)); }
    bool begin();
    bool showSheet();
    Outcome store();
    Outcome storeLocked();
    bool changesEntry() const;
    bool storeBlock(CString& problem);
    void tellWhatIsNotStored() const;
    Outcome ask(const CString& problem) const;
    Outcome askToOpen() const;

    CString drawing_;
    bool titled_;
    CString projectId_; // empty when no project lists the drawing
    FileLocks locks_;
    FileLocks projectLocks_;
    DrawingEntry entry_;
    DrawingBlock block_;
    std::unique_ptr<const RyvCfgDrawingSettings> defaults_;
    std::unique_ptr<const DrawingValues> base_;   // what the user began with
    std::unique_ptr<const DrawingValues> edited_; // what became of it
};

void DrawingProperties::run() {
    if (!begin())
        return;
    Outcome outcome = Outcome::goesBack;
    while (outcome == Outcome::goesBack && showSheet())
        outcome = store();
    projectLocks_.unlock();
    locks_.unlock();
    if (block_.isWritten())
        rereadInLisp({drawing_});
    if (outcome == Outcome::stored)
        tellWhatIsNotStored();
}

bool DrawingProperties::begin() {
    if (titled_ && !locks_.lock({drawing_})) {
        tellRefusal(locks_);
        return false;
    }
    defaults_ = std::make_unique<const RyvCfgDrawingSettings>(defaultsOf(holdProject(projectId_).get()));
    RyvCfgDrawingSettings settings(*defaults_);
    CString problem;
    if (!block_.read(settings, problem)) {
        tellNotRead(problem);
        return false;
    }
    const auto project = holdProject(projectId_);
    const RyvPrmFileDetails* const entry = project ? project->getProjectData().findFile(drawing_) : nullptr;
    base_ = std::make_unique<const DrawingValues>(DrawingValues{entry ? *entry : RyvPrmFileDetails(drawing_),
        entry != nullptr, settings, entry ? nameOfProject(projectId_) : CString()});
    return true;
}

bool DrawingProperties::showSheet() {
    CRyvCfgDrawingPropSheet sheet(
        format(messageText(message::propertiesOfDrawing), {name()}), edited_ ? *edited_ : *base_);
    if (platform().ui->runModal(sheet) != Dialog::idOk)
        return false;
    edited_ = std::make_unique<const DrawingValues>(sheet.values());
    return true;
}

DrawingProperties::Outcome DrawingProperties::store() {
    if (changesEntry() && !projectLocks_.lock({projectId_}))
        return ask(projectLocks_.refusal());
    const Outcome outcome = storeLocked();
    if (outcome != Outcome::stored)
        projectLocks_.unlock();
    return outcome;
}

/// The entry goes first, since it can be taken back whole: whatever fails, both are as they were.
DrawingProperties::Outcome DrawingProperties::storeLocked() {
    const StoreResult entry =
        base_->inProject ? entry_.store(base_->details, edited_->details) : StoreResult();
    if (entry.kind == StoreResult::Kind::closed)
        return askToOpen();
    if (!entry.ok())
        return ask(entry.file + u": " + entry.reason);
    CString problem;
    if (storeBlock(problem))
        return Outcome::stored;
    if (!entry_.takeBack())
        problem = format(messageText(message::propertiesEntryStays), {problem, nameOfProject(projectId_)});
    return ask(problem);
}

bool DrawingProperties::changesEntry() const {
    return base_->inProject && entry_.isToBeStored(base_->details, edited_->details);
}

/// A project that was closed meanwhile leaves what it had said; the active one has no say in its drawings.
bool DrawingProperties::storeBlock(CString& problem) {
    if (const auto project = holdProject(projectId_))
        defaults_ = std::make_unique<const RyvCfgDrawingSettings>(defaultsOf(project.get()));
    return block_.store(base_->settings, edited_->settings, *defaults_, problem);
}

void DrawingProperties::tellWhatIsNotStored() const {
    if (entry_.isGone())
        showMessage({message::propertiesEntryGone, message::propertiesNotStoredTitle, MessageIcon::warning},
            {name(), nameOfProject(projectId_)});
    MergeConflicts conflicts = entry_.conflicts();
    conflicts.settings = block_.conflicts().settings;
    tellConflicts(name(), conflicts);
}

DrawingProperties::Outcome DrawingProperties::ask(const CString& problem) const {
    const Answer answer = showMessage({message::propertiesDrawingNotStored, message::propertiesNotStoredTitle,
                                          MessageIcon::error, MessageButtons::retryCancel},
        {problem});
    return answer == Answer::retry ? Outcome::goesBack : Outcome::dropped;
}

/// The project was closed, so that there is no entry to be changed.
DrawingProperties::Outcome DrawingProperties::askToOpen() const {
    const Answer answer = showMessage({message::propertiesProjectClosed, message::propertiesNotStoredTitle,
                                          MessageIcon::error, MessageButtons::retryCancel},
        {nameOfProject(projectId_)});
    if (answer != Answer::retry)
        return Outcome::dropped;
    if (RyvPrmProjectManager* const manager = GetProjectManager())
        manager->openProject(projectId_, false);
    return Outcome::goesBack;
}

} // namespace

void showDrawingProperties(CStringView drawing, bool titled) {
    DrawingProperties(drawing, titled).run();
}

} // namespace ryv
