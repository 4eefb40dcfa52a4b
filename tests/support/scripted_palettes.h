// A palette framework without a screen: what was set can be read, and its windows lie in a message loop.
#pragma once

#include "base/fold.h"
#include "platform/host/palettes.h"

#include <algorithm>
#include <utility>

namespace ryv::test {

class ScriptedGroupControl final : public HostGroupControl {
public:
    std::vector<std::pair<CString, Control*>> pages; ///< caption and content
    void addPage(CStringView caption, Control& content) override {
        pages.emplace_back(caption, &content);
        selected_ = std::max(selected_, 0);
    }
    int selectedPage() override { return selected_; }
    void selectPage(int index) override {
        if (index >= 0 && static_cast<std::size_t>(index) < pages.size())
            selected_ = index;
    }
    bool isMinimized() override { return minimized_; }
    void setMinimized(bool minimized) override { minimized_ = minimized; }
    int style() override { return style_; }
    void setStyle(int style) override { style_ = style; }

private:
    int selected_ = -1;
    bool minimized_ = false;
    int style_ = 0;
};

class ScriptedPalette final : public HostPalette {
public:
    explicit ScriptedPalette(CStringView name) : name_(name) {}

    ScriptedGroupControl topGroup;
    ScriptedGroupControl bottomGroup;
    Control* header = nullptr;
    std::size_t themesApplied = 0;

    CString name() override { return name_; }
    void setHeader(Control& content) override { header = &content; }
    HostGroupControl& top() override { return topGroup; }
    HostGroupControl& bottom() override { return bottomGroup; }
    double topToWholeRatio() override { return ratio_; }
    void setTopToWholeRatio(double ratio) override { ratio_ = std::clamp(ratio, 0.0, 1.0); }
    void applyTheme() override { ++themesApplied; }

private:
    CString name_;
    double ratio_ = 0.5;
};

class ScriptedPalettes;

/// The host's own part of a saved layout is the attribute "HOST_DOCK".
class ScriptedPaletteSet final : public HostPaletteSet {
public:
    ScriptedPaletteSet(ScriptedPalettes& owner, PaletteSetClient& client) : owner_(owner), client_(client) {}
    ScriptedPaletteSet(const ScriptedPaletteSet&) = delete;
    ScriptedPaletteSet& operator=(const ScriptedPaletteSet&) = delete;
    ~ScriptedPaletteSet() override;

    CString name, toolId;
    PaletteSetWindow description; ///< what createWindow() was given
    std::uint32_t docking = 0;
    bool visible = false, floating = false, rollsUp = false;
    std::size_t rolledOut = 0, themesApplied = 0;
    ScreenRectangle rectangle; ///< where it floats
    std::vector<std::unique_ptr<ScriptedPalette>> palettes;
    bool layoutWorks = true; ///< the host can save and load its part
    int dock = 0;            ///< that part

    PaletteSetClient& client() noexcept { return client_; }

    void setName(CStringView text) override { name = text; }
    void setToolId(CStringView id) override { toolId = id; }
    bool createWindow(const PaletteSetWindow& window) override;
    WindowHandle window() override { return window_; }
    void enableDocking(std::uint32_t sides) override { docking = sides; }
    void show(bool shown) override { visible = shown && window_ != WindowHandle::none; }
    bool isVisible() override { return visible; }
    void restoreFloating(const ScreenRectangle& place) override {
        floating = window_ != WindowHandle::none;
        rectangle = place;
    }
    bool isFloating() override { return floating; }
    bool rollsUpAutomatically() override { return rollsUp; }
    void rollOut() override { ++rolledOut; }
    HostPalette& addPalette(CStringView title) override {
        return *palettes.emplace_back(std::make_unique<ScriptedPalette>(title));
    }
    bool removePalette(HostPalette& palette) override {
        return std::erase_if(palettes, [&palette](const auto& each) { return each.get() == &palette; }) > 0;
    }
    int activePalette() override { return palettes.empty() ? -1 : 0; }
    bool save(WorkspaceNode& node) override {
        if (layoutWorks)
            node.setInteger(u"HOST_DOCK", dock);
        return layoutWorks;
    }
    bool load(const WorkspaceNode& node) override {
        node.integer(u"HOST_DOCK", dock);
        return layoutWorks;
    }
    void applyTheme() override { ++themesApplied; }

private:
    ScriptedPalettes& owner_;
    PaletteSetClient& client_;
    WindowHandle window_ = WindowHandle::none;
};

class ScriptedPalettes final : public HostPalettes {
public:
    explicit ScriptedPalettes(MessageLoop& windows) : loop(windows) {}

    MessageLoop& loop;
    ScriptedPaletteSet* set = nullptr; ///< the newest palette set, as long as it lives
    bool canCreateWindows = true;
    std::vector<HostTool> tools;

    std::unique_ptr<HostPaletteSet> newPaletteSet(PaletteSetClient& client) override {
        auto made = std::make_unique<ScriptedPaletteSet>(*this, client);
        set = made.get();
        return made;
    }
    void registerTool(const HostTool& tool) override {
        std::erase_if(tools, [&tool](const HostTool& each) { return equalNoCase(each.id, tool.id); });
        tools.push_back(tool);
    }
};

inline ScriptedPaletteSet::~ScriptedPaletteSet() {
    owner_.loop.destroyWindow(window_);
    if (owner_.set == this)
        owner_.set = nullptr;
}

inline bool ScriptedPaletteSet::createWindow(const PaletteSetWindow& window) {
    if (window_ != WindowHandle::none || !owner_.canCreateWindows)
        return false;
    description = window;
    window_ = owner_.loop.createWindow(client_);
    return window_ != WindowHandle::none;
}

} // namespace ryv::test
