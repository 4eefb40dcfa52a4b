#include "host/application.h"

#include "base/paths.h"
#include "bridge/platform.h"
#include "host/client_reactor.h"
#include "host/command_table.h"
#include "host/lisp_functions.h"
#include "ui/tree/control_factory.h"

namespace ryv {

namespace {

/// A name in the user's temporary folder that nobody else has; empty when there is no such folder.
CString newTemporaryDrawing() {
    const CString folder = platform().os.paths->temporaryFolder();
    const CString id = platform().os.uniqueIds->newGuid();
    if (folder.empty() || id.empty())
        return {};
    return paths::combine(folder, id + u".dwg").value_or(CString());
}

/// What somebody has left under the module's temporary name. That there is nothing is the usual case.
void deleteTemporaryDrawing(CStringView file) {
    if (!file.empty())
        static_cast<void>(platform().os.files->remove(file));
}

} // namespace

CRyvPageManApp::CRyvPageManApp() noexcept : RyvModuleApp(commandTable()) {}

ModuleResult CRyvPageManApp::onInitialiseApplication(ModuleContext& context) {
    try {
        const ModuleResult result = RyvModuleApp::onInitialiseApplication(context);
        initialiseModule();
        return result;
    } catch (...) { // the host will not end what has not begun, and its ports go
        onUnloadApplication(context);
        throw;
    }
}

void CRyvPageManApp::initialiseModule() {
    if (!navManager_) {
        navManager_ = std::make_unique<RyvPrmNavManager>();
        setNavState(navManager_.get());
        navManager_->initialise();
    }
    navManager_->temporaryDrawing = newTemporaryDrawing();
    addCopyToCommand();
}

/// The input context comes first: a listener that is told of the new document may call LISP already.
ModuleResult CRyvPageManApp::onLoadDrawing(ModuleContext&) {
    if (navManager_)
        navManager_->documentLoaded();
    registerLispFunctions();
    return ModuleResult::success;
}

ModuleResult CRyvPageManApp::onUnloadApplication(ModuleContext& context) {
    if (navManager_)
        deleteTemporaryDrawing(navManager_->temporaryDrawing);
    RyvOZMClientReactor::instance().remove(); // a module that forgot to must not keep the host calling here
    navManager_.reset();
    RyvPrmControlFactory::Instance().RegisterImplementation(nullptr); // behind the controls that it has made
    removeCopyToCommand();
    return RyvModuleApp::onUnloadApplication(context);
}

} // namespace ryv
