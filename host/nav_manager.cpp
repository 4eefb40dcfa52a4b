#include "host/nav_manager.h"

#include "bridge/platform.h"
#include "bridge/project_calls.h"
#include "host/first_place.h"
#include "host/palette_set.h"
#include "host/reactors.h"
#include "manager/project_manager.h"
#include "manager/reread_window.h"

namespace ryv {

namespace {

constexpr CStringView visibilityValue = u"Visibility";

/// Empty when the host cannot tell where its product keeps its settings.
CString visibilityKey() {
    const CString product = platform().host.profile->productKey();
    return product.empty() ? CString() : product + u"\\Settings\\QPV";
}

} // namespace

RyvPrmNavManager::RyvPrmNavManager() {
    readVisibility();
}

RyvPrmNavManager::~RyvPrmNavManager() {
    editor_.reset();
    documents_.reset();
    inputContext_.reset();
    paletteSet_.reset();
    withoutPalette_.reset();
    notifier_.reset();
    deferredRequests().finish();
    destroyProjectManager();
    writeVisibility();
}

void RyvPrmNavManager::initialise() {
    inputContext_ = std::make_unique<RyvPrmInputContextReactor>(*this);
    createProjectManager();
    if (!createPaletteSet()) // changed projects have to be read again all the same
        withoutPalette_ = std::make_unique<RereadWindow>(*this);
    notifier_ = std::make_unique<RyvPrmSubsystemNotifier>(*projectManager());
    documents_ = std::make_unique<RyvPrmDocManagerReactor>(*this);
    editor_ = std::make_unique<RyvPrmEditorReactor>(*this);
}

void RyvPrmNavManager::documentLoaded() {
    if (!inputContext_)
        return;
    HostDocuments& documents = *platform().host.documents;
    const DocumentId document = documents.currentDocument();
    inputContext_->attach(document);
    tellBusyListeners(documents.isQuiescent(document) ? 0 : 1);
}

void RyvPrmNavManager::tellActiveProject() {
    CString project;
    const RyvPrmProjectManager* const manager = projectManager();
    if (manager && manager->getActiveProjectID(project) && !lisp::makeProjectActive(project))
        startRetryTimer();
}

void RyvPrmNavManager::startRetryTimer() {
    if (hasPaletteWindow())
        paletteSet_->startRetryTimer();
    else
        makeActivePending = true; // without a window there are no timers: the next idle state is the retry
}

bool RyvPrmNavManager::createPaletteSet() {
    if (creationBlocked_)
        return false;
    if (hasPaletteWindow())
        return true;
    if (platform().host.mainWindow->window() == WindowHandle::none)
        return false;
    if (!paletteSet_)
        paletteSet_ = std::make_unique<RyvPrmPaletteSet>(*this);
    return paletteSet_->create();
}

bool RyvPrmNavManager::showPaletteSet(bool shown) {
    HostMainWindow& mainWindow = *platform().host.mainWindow;
    if (mainWindow.window() == WindowHandle::none || (!hasPaletteWindow() && !createPaletteSet()))
        return false;
    if (mainWindow.isInBackground())
        return true;
    if (shown && !placed_)
        placeFirst();
    HostPaletteSet& host = *paletteSet_->host();
    host.show(shown);
    visibilityDecided_ = true;
    if (host.isFloating() && host.rollsUpAutomatically())
        host.rollOut();
    return true;
}

/// One that is visible already has a place: the one of the user's workspace.
void RyvPrmNavManager::placeFirst() {
    if (isPaletteSetVisible())
        return;
    paletteSet_->host()->restoreFloating(firstPlace(*platform().host.mainWindow));
    platform().host.mainWindow->focus();
    placed_ = true;
}

bool RyvPrmNavManager::isPaletteSetVisible() const {
    return paletteSet_ && paletteSet_->isVisible();
}

bool RyvPrmNavManager::hasPaletteWindow() const {
    return paletteSet_ && paletteSet_->hasWindow();
}

void RyvPrmNavManager::removePalette(HostPalette& palette) {
    if (paletteSet_)
        paletteSet_->removePalette(palette);
}

RyvPrmPalette* RyvPrmNavManager::firstPalette() const noexcept {
    return paletteSet_ ? paletteSet_->palette() : nullptr;
}

void RyvPrmNavManager::afterStartupLoading() {
    if (visibilityDecided_ || !remembersVisible_)
        return;
    if (isPaletteSetVisible())
        visibilityDecided_ = true;
    else
        showPaletteSet(true);
}

void RyvPrmNavManager::readVisibility() {
    std::uint32_t visible = 0;
    const CString key = visibilityKey();
    if (!key.empty() &&
        platform().os.registry->readInteger(key, visibilityValue, visible) == RegistryStatus::ok)
        remembersVisible_ = visible == 1;
}

/// A registry that cannot be written costs the memory of the visibility and nothing else.
void RyvPrmNavManager::writeVisibility() const {
    Registry& registry = *platform().os.registry;
    const CString key = visibilityKey();
    if (!key.empty() && registry.createKey(key) == RegistryStatus::ok)
        static_cast<void>(registry.writeInteger(key, visibilityValue, remembersVisible_ ? 1 : 0));
}

RyvPrmNavManager* GetNavManager() noexcept {
    return dynamic_cast<RyvPrmNavManager*>(navState()); // a program without a host has a plain one
}

} // namespace ryv
