#include "base/fold.h"
#include "bridge/platform.h"
#include "host/nav_manager.h"
#include "host/reactors.h"
#include "manager/project_manager.h"

#include <utility>

namespace ryv {

namespace {

constexpr CStringView cleanScreenState = u"CleanScreenState";

bool isScreenClean() {
    SystemVariable state;
    const std::int32_t* const number = platform().host.editor->systemVariable(cleanScreenState, state)
                                           ? std::get_if<std::int32_t>(&state)
                                           : nullptr;
    return number && *number == 1;
}

} // namespace

RyvPrmEditorReactor::RyvPrmEditorReactor(RyvPrmNavManager& owner) : owner_(owner) {
    platform().host.editor->add(*this);
}

RyvPrmEditorReactor::~RyvPrmEditorReactor() {
    platform().host.editor->remove(*this);
}

void RyvPrmEditorReactor::setSaveComplete(SaveComplete callback) noexcept {
    if (callback)
        saveComplete_ = callback;
}

void RyvPrmEditorReactor::beginQuit(bool& veto) {
    RyvPrmProjectManager* const manager = owner_.projectManager();
    if (manager && manager->sendEventVetoCheck())
        veto = true;
}

void RyvPrmEditorReactor::saveComplete(CStringView path) {
    const RyvPrmProjectManager* const manager = owner_.projectManager();
    if (saveComplete_ && manager && manager->getActiveProject())
        saveComplete_(manager->isFileInProject(path));
}

/// A palette set that the user had closed is not shown again, because only one that was visible is
/// remembered.
void RyvPrmEditorReactor::systemVariableChanged(CStringView name) {
    if (!equalNoCase(name, cleanScreenState))
        return;
    if (!isScreenClean()) {
        if (std::exchange(hiddenByCleanScreen_, false))
            owner_.showPaletteSet(true);
    } else if (owner_.isPaletteSetVisible()) {
        hiddenByCleanScreen_ = true;
        owner_.showPaletteSet(false);
    }
}

} // namespace ryv
