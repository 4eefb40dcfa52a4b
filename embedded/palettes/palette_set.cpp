#include "embedded/palettes/palette_set.h"

#include "embedded/palettes/palette_framework.h"

#include <algorithm>

namespace drafta {

namespace {

constexpr ryv::CStringView element = u"HOST_WINDOW";
constexpr int leastSize = 50; // pixels of a set that can still be taken hold of

bool readRectangle(const ryv::WorkspaceNode& node, ryv::ScreenRectangle& rectangle) {
    ryv::ScreenRectangle read;
    const bool whole = node.integer(u"left", read.left) && node.integer(u"top", read.top) &&
                       node.integer(u"width", read.width) && node.integer(u"height", read.height);
    if (whole && read.width > 0 && read.height > 0)
        rectangle = read;
    return whole && read.width > 0 && read.height > 0;
}

} // namespace

PaletteSet::PaletteSet(PaletteFramework& framework, ryv::PaletteSetClient& client)
    : framework_(framework), client_(client), theme_(framework.mainWindow().theme()) {
    framework_.enter(*this);
}

PaletteSet::~PaletteSet() {
    framework_.loop().destroyWindow(window_);
    framework_.leave(*this); // views let go of it
}

/// Anybody may end a window who knows its handle.
bool PaletteSet::hasWindow() const {
    return framework_.loop().isWindow(window_);
}

Palette* PaletteSet::shownPalette() const noexcept {
    return active_ < 0 ? nullptr : palettes_[static_cast<std::size_t>(active_)].get();
}

bool PaletteSet::createWindow(const ryv::PaletteSetWindow& description) {
    if (hasWindow() || framework_.mainWindow().window() == ryv::WindowHandle::none)
        return false;
    window_ = framework_.loop().createWindow(client_);
    rectangle_ = description.rectangle;
    visible_ = false;
    awaitsLayout_ = hasWindow();
    if (awaitsLayout_)
        framework_.expectLayout(*this);
    changed.fire();
    return hasWindow();
}

void PaletteSet::applySavedLayout() {
    if (awaitsLayout_)
        framework_.applyLayout(*this);
}

void PaletteSet::enableDocking(std::uint32_t sides) {
    sides_ = sides;
    if ((sideOf(dock_) & ~sides_) != 0)
        dock_ = Dock::floating;
}

void PaletteSet::show(bool shown) {
    if (shown && hasWindow()) {
        applySavedLayout(); // again, when it was taken on before: the client may have placed the set since
        awaitsLayout_ = false;
    }
    visible_ = shown && hasWindow();
    wasShown_ = wasShown_ || visible_;
    changed.fire();
}

void PaletteSet::setName(ryv::CStringView name) {
    name_ = name;
    changed.fire();
}

void PaletteSet::rollOut() {
    rolledUp_ = false;
    changed.fire();
}

bool PaletteSet::dockAt(Dock dock) {
    if (!hasWindow() || (sideOf(dock) & sides_) == 0)
        return false;
    dock_ = dock;
    changed.fire();
    return true;
}

bool PaletteSet::floatAt(const ryv::ScreenRectangle& rectangle) {
    if (!hasWindow())
        return false;
    dock_ = Dock::floating;
    rectangle_ = rectangle;
    changed.fire();
    return true;
}

bool PaletteSet::setRollsUp(bool rollsUp) {
    if (!hasWindow())
        return false;
    rollsUp_ = rollsUp;
    rolledUp_ = rollsUp;
    changed.fire();
    return true;
}

bool PaletteSet::selectPalette(int index) {
    const bool isThere = index >= 0 && static_cast<std::size_t>(index) < palettes_.size();
    if (!isThere || !hasWindow())
        return false;
    active_ = index;
    changed.fire();
    return true;
}

ryv::HostPalette& PaletteSet::addPalette(ryv::CStringView name) {
    active_ = std::max(active_, 0);
    Palette& added = *palettes_.emplace_back(std::make_unique<Palette>(framework_.mainWindow(), name));
    changed.fire();
    return added;
}

bool PaletteSet::removePalette(ryv::HostPalette& palette) {
    const auto hit = std::find_if(
        palettes_.begin(), palettes_.end(), [&palette](const auto& each) { return each.get() == &palette; });
    if (hit == palettes_.end())
        return false;
    const bool isBeforeActive = hit - palettes_.begin() < active_;
    const std::unique_ptr<Palette> removed = std::move(*hit); // until views have let go of it
    palettes_.erase(hit);
    active_ = std::min(active_ - (isBeforeActive ? 1 : 0), static_cast<int>(palettes_.size()) - 1);
    changed.fire();
    return true;
}

bool PaletteSet::save(ryv::WorkspaceNode& node) {
    if (!hasWindow())
        return false;
    ryv::WorkspaceNode* const found = node.findChild(element);
    ryv::WorkspaceNode& own = found ? *found : node.addChild(element);
    own.setString(u"dock", nameOf(dock_));
    own.setInteger(u"left", rectangle_.left);
    own.setInteger(u"top", rectangle_.top);
    own.setInteger(u"width", rectangle_.width);
    own.setInteger(u"height", rectangle_.height);
    own.setInteger(u"rollsUp", rollsUp_ ? 1 : 0);
    own.setInteger(u"tab", active_);
    if (dockedSize_ > 0)
        own.setInteger(u"dockedSize", dockedSize_);
    return true;
}

bool PaletteSet::load(const ryv::WorkspaceNode& node) {
    const ryv::WorkspaceNode* const own = node.findChild(element);
    if (!hasWindow() || !own)
        return hasWindow();
    ryv::CString word;
    ryv::ScreenRectangle place;
    std::int32_t rollsUp = 0;
    const std::optional<Dock> dock = own->string(u"dock", word) ? dockNamed(word) : std::nullopt;
    if (!dock || !readRectangle(*own, place) || !own->integer(u"rollsUp", rollsUp))
        return false;
    if (std::int32_t size = 0; own->integer(u"dockedSize", size))
        dockedSize_ = std::max(0, size);
    floatAt(onScreen(place));
    dockAt(*dock);
    setRollsUp(rollsUp != 0);
    if (std::int32_t tab = 0; own->integer(u"tab", tab))
        selectPalette(tab);
    return true;
}

/// Made to fit and moved so that the set can be taken hold of, also when it was saved on a larger screen.
ryv::ScreenRectangle PaletteSet::onScreen(ryv::ScreenRectangle rectangle) const {
    const ryv::ScreenRectangle screen = framework_.mainWindow().rectangle();
    rectangle.width = std::min(rectangle.width, std::max(leastSize, screen.width));
    rectangle.height = std::min(rectangle.height, std::max(leastSize, screen.height));
    rectangle.left = std::clamp(rectangle.left, 0, std::max(0, screen.width - leastSize));
    rectangle.top = std::clamp(rectangle.top, 0, std::max(0, screen.height - leastSize));
    return rectangle;
}

void PaletteSet::applyTheme() {
    theme_ = framework_.mainWindow().theme();
}

} // namespace drafta
