#include "host/palette_set.h"

#include "bridge/platform.h"
#include "host/nav_manager.h"
#include "host/palette.h"
#include "host/palette_layout.h"
#include "manager/reread_window.h"
#include "resources/message_numbers.h"
#include "resources/messages.h"

#include <cmath>

namespace ryv {

namespace {

constexpr std::chrono::milliseconds retryPeriod{1000};

/// Bits that have the meaning which the host's framework gives them.
constexpr std::uint32_t windowStyle = 0x410000;
constexpr std::uint32_t paletteSetStyle = 46;

PaletteSetWindow newWindow() {
    const DpiFactors dpi = platform().host.mainWindow->dpiFactors();
    PaletteSetWindow window;
    window.windowStyle = windowStyle;
    window.paletteSetStyle = paletteSetStyle;
    window.rectangle.width = static_cast<int>(std::lround(250 * dpi.horizontal));
    window.rectangle.height = static_cast<int>(std::lround(450 * dpi.vertical));
    window.doubleClicks = true;
    return window;
}

} // namespace

RyvPrmPaletteSet::RyvPrmPaletteSet(RyvPrmNavManager& owner)
    : owner_(owner), host_(platform().host.palettes->newPaletteSet(*this)) {
    if (!host_)
        return;
    host_->setName(messageText(message::paletteSetName));
    host_->setToolId(toolId);
    platform().host.palettes->registerTool({CString(toolName), CString(toolCommand), CString(toolId)});
    platform().host.mainWindow->add(*this);
}

RyvPrmPaletteSet::~RyvPrmPaletteSet() {
    stopRetryTimer();
    platform().host.mainWindow->remove(*this);
    if (host_ && owner_.paletteWindow() == host_->window())
        owner_.setPaletteWindow(WindowHandle::none);
}

bool RyvPrmPaletteSet::create() {
    if (!host_)
        return false;
    if (!palette_) // before the window, because the host may hand the saved layout over together with that
        palette_ =
            std::make_unique<RyvPrmPalette>(host_->addPalette(messageText(message::paletteName)), owner_);
    if (!host_->createWindow(newWindow()))
        return false;
    host_->enableDocking(DockingSides::all);
    owner_.setPaletteWindow(host_->window());
    timerRuns_ = false; // one that ran has gone with the window before
    return true;
}

bool RyvPrmPaletteSet::hasWindow() const {
    return host_ && platform().os.messages->isWindow(host_->window());
}

bool RyvPrmPaletteSet::isVisible() const {
    return hasWindow() && host_->isVisible();
}

void RyvPrmPaletteSet::startRetryTimer() {
    if (!timerRuns_ && hasWindow())
        timerRuns_ = platform().os.messages->setTimer(host_->window(), retryTimer, retryPeriod);
}

void RyvPrmPaletteSet::stopRetryTimer() {
    if (timerRuns_)
        platform().os.messages->killTimer(host_->window(), retryTimer);
    timerRuns_ = false;
}

void RyvPrmPaletteSet::removePalette(HostPalette& palette) {
    const bool isOurs = palette_ && &palette_->host() == &palette;
    if (host_ && host_->removePalette(palette) && isOurs)
        leaving_.take(std::move(palette_));
}

std::intptr_t RyvPrmPaletteSet::onMessage(std::uint32_t number, std::uintptr_t first, std::intptr_t) {
    handleRereadMessage(owner_, number, first);
    return 0;
}

void RyvPrmPaletteSet::onTimer(std::uint32_t id) {
    if (id == retryTimer) {
        stopRetryTimer();
        owner_.tellActiveProject();
    } else {
        handleRereadTimer(owner_, host_->window(), id);
    }
}

bool RyvPrmPaletteSet::saveLayout(WorkspaceNode& node) {
    owner_.rememberVisible(isVisible());
    if (!host_->save(node))
        return false;
    WorkspaceNode& ours = childOf(node, palette_layout::paletteSet);
    ours.setInteger(palette_layout::activePalette, host_->activePalette());
    if (palette_) {
        // A node that was saved into before has the palette's place already.
        const std::vector<WorkspaceNode*> before = paletteNodes(ours, message::paletteName);
        palette_->saveLayout(before.empty() ? ours.addChild(palette_layout::palette) : *before.back());
    }
    return true;
}

bool RyvPrmPaletteSet::loadLayout(const WorkspaceNode& node) {
    if (!host_->load(node))
        return false;
    const WorkspaceNode* const ours = node.findChild(palette_layout::paletteSet);
    if (!ours)
        return true;
    ours->integer(palette_layout::activePalette, savedActivePalette_);
    if (palette_)
        for (const WorkspaceNode* each : paletteNodes(*ours, message::paletteName))
            palette_->loadLayout(*each);
    return true;
}

void RyvPrmPaletteSet::themeChanged() {
    host_->applyTheme();
    if (palette_)
        palette_->applyTheme();
}

} // namespace ryv
