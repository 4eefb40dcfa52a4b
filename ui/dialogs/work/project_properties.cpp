#include "ui/dialogs/work/project_properties.h"

#include "bridge/command_strings.h"
#include "bridge/platform.h"
#include "bridge/tag_format_globals.h"
#include "manager/file_locks.h"
#include "manager/nav_state.h"
#include "manager/project_manager.h"
#include "manager/shown_messages.h"
#include "resources/messages.h"
#include "resources/setting_message_numbers.h"
#include "ui/dialogs/sheets/project_sheet.h"
#include "ui/dialogs/work/drawing_access.h"
#include "ui/dialogs/work/project_store.h"
#include "ui/dialogs/work/told_refusal.h"
#include "ui/dialogs/work/value_merge.h"

#include <memory>

namespace ryv {

namespace {

ProjectValues valuesOf(const RyvPrmProject& project) {
    const RyvPrmProjectData& data = project.getProjectData();
    return {data.getProjDescriptions(), data.getMiscProjSettings(), data.getProjDefKQMVals()};
}

/// One run of the sheet, from the lock to what LISP has to hear.
class ProjectProperties {
public:
    explicit ProjectProperties(CStringView projectId)
        : locks_(projectId), store_(projectId), name_(nameOfProject(projectId)) {}
    void run();

private:
    const CString& id() const noexcept { return locks_.projectId(); }
    bool edit();
    bool showSheet();
    bool change(RyvPrmProject& project);
    void put(RyvPrmProject& project, const ProjectValues& values) const;
    void undo(RyvPrmProject& project) const;
    bool goesBack(const StoreResult& result) const;
    void tellLisp(const TagFormatGlobals& before) const;

    FileLocks locks_;
    ProjectStore store_;
    CString name_;
    std::unique_ptr<const ProjectValues> base_;   // what the user began with
    std::unique_ptr<const ProjectValues> edited_; // what became of it
    std::unique_ptr<const ProjectValues> before_; // what the project said when it was changed last
    std::unique_ptr<const ProjectValues> after_;  // what it was to say then
    MergeConflicts conflicts_;
};

void ProjectProperties::run() {
    if (!locks_.lockProject()) {
        tellRefusal(locks_);
        return;
    }
    const TagFormatGlobals before = readTagFormatGlobals();
    const auto project = holdProject(id());
    if (!project) // LISP closed it
        return;
    base_ = std::make_unique<const ProjectValues>(valuesOf(*project));
    const bool stored = edit();
    locks_.unlock();
    if (!stored)
        return;
    tellLisp(before);
    tellConflicts(name_, conflicts_);
}

/// True when the sheet ended with OK and what it was left with is stored.
bool ProjectProperties::edit() {
    while (showSheet()) {
        const StoreResult result = store_.store([this](RyvPrmProject& project) { return change(project); },
            [this](RyvPrmProject& project) { undo(project); });
        if (result.ok())
            return true;
        if (!goesBack(result))
            break;
    }
    return false;
}

bool ProjectProperties::showSheet() {
    CRyvCfgProjPropSheet sheet(
        format(messageText(message::propertiesOfProject), {name_}), edited_ ? *edited_ : *base_);
    if (platform().ui->runModal(sheet) != Dialog::idOk)
        return false;
    edited_ = std::make_unique<const ProjectValues>(sheet.values());
    return true;
}

bool ProjectProperties::change(RyvPrmProject& project) {
    conflicts_ = {};
    before_ = std::make_unique<const ProjectValues>(valuesOf(project));
    after_ = std::make_unique<const ProjectValues>(mergeProject(*base_, *edited_, *before_, conflicts_));
    if (isSame(*after_, *before_))
        return false;
    put(project, *after_);
    return true;
}

void ProjectProperties::put(RyvPrmProject& project, const ProjectValues& values) const {
    if (values.misc != project.getProjectData().getMiscProjSettings())
        GetProjectManager()->setMiscProjSettingsInProject(values.misc, id());
    RyvPrmProjectData& data = project.editProjectData();
    data.setProjDescriptions(values.descriptions);
    data.setProjDefKQMVals(values.settings);
}

/// Only the user's own values; what others have put beside them meanwhile stays.
void ProjectProperties::undo(RyvPrmProject& project) const {
    MergeConflicts ignored;
    put(project, mergeProject(*after_, *before_, valuesOf(project), ignored));
}

/// Asks whether the user wants to go back to the sheet; a project that was closed is opened again then.
bool ProjectProperties::goesBack(const StoreResult& result) const {
    const bool closed = result.kind == StoreResult::Kind::closed;
    const ShownMessage question{closed ? message::propertiesProjectClosed : message::propertiesNotStored,
        message::propertiesNotStoredTitle, MessageIcon::error, MessageButtons::retryCancel};
    const Answer answer =
        closed ? showMessage(question, {name_}) : showMessage(question, {result.file, result.reason});
    RyvPrmProjectManager* const manager = GetProjectManager();
    if (answer == Answer::retry && closed && manager)
        manager->openProject(id(), false);
    return answer == Answer::retry;
}

void ProjectProperties::tellLisp(const TagFormatGlobals& before) const {
    const auto project = holdProject(id());
    if (!project || project->getProjectData().getProjFileDetails().empty())
        return;
    if (NavState* const state = navState())
        state->projectReread().run();
    if (readTagFormatGlobals() != before)
        runInApplicationContext(CommandString::freshenTags);
}

} // namespace

void showProjectProperties(CStringView projectId) {
    if (const auto project = holdProject(projectId))
        ProjectProperties(project->getProjectID()).run();
}

} // namespace ryv
