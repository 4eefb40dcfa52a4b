// A small module of the package that builds on the project manager's library, as others do: it links what
// that exports, watches and asks, and offers what it learns as commands that print.
#include "RyvPageMan/host.h"
#include "RyvPageMan/manager.h"
#include "RyvPageMan/model.h"
#include "RyvPageMan/module.h"

#include "base/format.h"

#include <optional>

namespace {

using ryv::CString;
using ryv::CStringView;

ryv::Platform* host = nullptr;
std::optional<bool> restedAtIdle; // at the last idle event

void print(CStringView text) {
    host->host.console->print(u"\n" + CString(text) + u"\n");
}

CStringView word(bool answer) {
    return answer ? u"yes" : u"no";
}

void rememberIdle() {
    restedAtIdle = ryv::checkQuiescentState();
}

void tellSaved(bool belongs) {
    print(belongs ? u"saved: of the project" : u"saved: of no project");
}

/// Follows the manager's events, and vetoes when it is told to.
class Follower {
public:
    void follow(ryv::RyvPrmProjectManager& manager) {
        manager_ = &manager;
        manager.onProjectOpen.subscribe(*this, &Follower::opened);
        manager.onDrawingActivate.subscribe(*this, &Follower::activated);
        manager.OnProjectEventVetoCheck.subscribe(*this, &Follower::check);
    }
    void leave() {
        if (manager_ && manager_ == ryv::GetProjectManager())
            manager_->__RemoveAllEventHandlers(this);
        manager_ = nullptr;
    }
    bool vetoes = false;

private:
    void opened(const CString& project) { print(u"opened " + project); }
    void activated(const CString& drawing) { print(u"at work on " + drawing); }
    void check(bool& veto) { veto = veto || vetoes; }
    ryv::RyvPrmProjectManager* manager_ = nullptr;
};

Follower& follower() {
    static Follower only;
    return only;
}

void runStates() {
    const CStringView rested = word(restedAtIdle.value_or(false));
    print(ryv::format(u"idle events: %s, at rest then: %s; at rest: %s; has a document: %s; link update: %s",
        {word(restedAtIdle.has_value()), rested, word(ryv::checkQuiescentState()),
            word(ryv::checkZeroDocState()), word(ryv::checkClientQueueStatus())}));
}

/// A project of the sibling's own, without the manager.
void runModel() {
    ryv::RyvPrmProjectData project;
    const CString trace = u"POWER/MOTORS";
    project.addFile(std::make_unique<ryv::RyvPrmFileDetails>(u"\\p\\one.dwg"), &trace);
    ryv::RyvPrmSubfolder* subfolder = nullptr;
    project.getSubfolderByTrace(u"power/motors", subfolder, false, false);
    CString tag;
    ryv::RyvCfgDrawingSettings::getKQ_MTagForIndex(0, tag);
    print(ryv::format(
        u"subfolder: %s; first setting: %s", {subfolder ? subfolder->getName() : CString(u"none"), tag}));
}

void runRefuseOutOfRange() {
    try {
        const ryv::CArray<int> none;
        static_cast<void>(none.at(1));
    } catch (const std::invalid_argument&) {
        print(u"caught");
    }
}

void addCommand(CStringView name, void (*run)()) {
    host->host.commands->addCommand(
        {u"SIBLING", CString(name), CString(name), ryv::CommandFlags::applicationContext, run});
}

void start() {
    ryv::registerBeginQuiescentStateCB(rememberIdle);
    ryv::registerSaveCompleteCB(tellSaved);
    if (ryv::RyvPrmProjectManager* const manager = ryv::GetProjectManager())
        follower().follow(*manager);
    addCommand(u"SIBLINGSTATES", runStates);
    addCommand(u"SIBLINGMODEL", runModel);
    addCommand(u"SIBLINGRANGE", runRefuseOutOfRange);
    addCommand(u"SIBLINGVETO", [] { follower().vetoes = true; });
    addCommand(u"SIBLINGALLOW", [] { follower().vetoes = false; });
    addCommand(u"SIBLINGLINK", ryv::registerOZMCompUpdate);
    addCommand(u"SIBLINGUNLINK", ryv::unregisterOZMCompUpdate);
    addCommand(u"SIBLINGPALETTE", [] { ryv::removeLocationPalette(nullptr); });
}

} // namespace

extern "C" RYV_EXPORT int ryvModuleEntry(int message, ryv::ModuleContext* context) {
    if (message == static_cast<int>(ryv::ModuleMessage::initialiseApplication)) {
        host = context->platform;
        start();
    } else if (message == static_cast<int>(ryv::ModuleMessage::unloadApplication)) {
        follower().leave();
        host->host.commands->removeGroup(u"SIBLING");
    }
    return static_cast<int>(ryv::ModuleResult::success);
}
