// A palette set: a window without pixels that holds palettes, and what the user can do with it.
#pragma once

#include "embedded/palettes/dock.h"
#include "embedded/palettes/palette.h"

#include <memory>
#include <vector>

namespace drafta {

class PaletteFramework;

class PaletteSet final : public ryv::HostPaletteSet {
public:
    /// The framework knows the set until it ends, and outlives it.
    PaletteSet(PaletteFramework& framework, ryv::PaletteSetClient& client);
    PaletteSet(const PaletteSet&) = delete;
    PaletteSet& operator=(const PaletteSet&) = delete;
    ~PaletteSet() override;

    /// What a view shows is different: the window, its place, its palettes and which one is selected.
    ryv::Event<> changed;

    const ryv::CString& name() const noexcept { return name_; }
    const ryv::CString& toolId() const noexcept { return toolId_; }
    ryv::PaletteSetClient& client() noexcept { return client_; }
    const std::vector<std::unique_ptr<Palette>>& palettes() const noexcept { return palettes_; }
    /// The palette whose tab is selected; null when there is none.
    Palette* shownPalette() const noexcept;

    Dock dock() const noexcept { return dock_; }
    /// Where the set floats, or would float.
    const ryv::ScreenRectangle& rectangle() const noexcept { return rectangle_; }
    /// How deep it reaches into the main window when it is docked, in pixels; 0 before anybody has said so.
    int dockedSize() const noexcept { return dockedSize_; }
    void setDockedSize(int pixels) noexcept { dockedSize_ = pixels; }
    bool isRolledUp() const noexcept { return rolledUp_ && dock_ == Dock::floating; }
    ryv::HostTheme theme() const noexcept { return theme_; }

    /// What the user does. Each gives false, and changes nothing, without a window; docking also at a side
    /// that is not enabled, selecting a tab that is not there.
    bool dockAt(Dock dock);
    bool floatAt(const ryv::ScreenRectangle& rectangle);
    bool setRollsUp(bool rollsUp); ///< one that floats is rolled up at once
    bool selectPalette(int index);

    /// Whether anybody has seen it since it was made.
    bool wasShown() const noexcept { return wasShown_; }

    /// Lets the client take on the saved layout, unless the set was shown since the window was made.
    void applySavedLayout();

    void setName(ryv::CStringView name) override;
    void setToolId(ryv::CStringView id) override { toolId_ = id; }
    /// The window floats in the rectangle. The saved layout is taken on when the set is shown first, or when
    /// the host handles its messages: the palettes have been added by then.
    bool createWindow(const ryv::PaletteSetWindow& description) override;
    ryv::WindowHandle window() override { return hasWindow() ? window_ : ryv::WindowHandle::none; }
    void enableDocking(std::uint32_t sides) override;
    void show(bool shown) override;
    bool isVisible() override { return visible_ && hasWindow(); }
    void restoreFloating(const ryv::ScreenRectangle& rectangle) override { floatAt(rectangle); }
    bool isFloating() override { return hasWindow() && dock_ == Dock::floating; }
    bool rollsUpAutomatically() override { return rollsUp_; }
    void rollOut() override;
    ryv::HostPalette& addPalette(ryv::CStringView name) override;
    bool removePalette(ryv::HostPalette& palette) override;
    int activePalette() override { return active_; }
    bool save(ryv::WorkspaceNode& node) override;
    /// A set of which nothing is saved stays as it is; a side that is not enabled, or a place off the screen,
    /// is left for the nearest one that is there. False when what is saved makes no sense.
    bool load(const ryv::WorkspaceNode& node) override;
    void applyTheme() override;

private:
    bool hasWindow() const;
    ryv::ScreenRectangle onScreen(ryv::ScreenRectangle rectangle) const;

    PaletteFramework& framework_;
    ryv::PaletteSetClient& client_;
    ryv::CString name_;
    ryv::CString toolId_;
    ryv::WindowHandle window_ = ryv::WindowHandle::none;
    std::vector<std::unique_ptr<Palette>> palettes_;
    int active_ = -1;
    Dock dock_ = Dock::floating;
    std::uint32_t sides_ = 0;
    ryv::ScreenRectangle rectangle_;
    int dockedSize_ = 0;
    bool visible_ = false;
    bool wasShown_ = false;
    bool rollsUp_ = false;
    bool rolledUp_ = false;
    bool awaitsLayout_ = false;
    ryv::HostTheme theme_;
};

} // namespace drafta
