// The host's palette framework: dockable palette sets, the palettes in them and their group controls.
#pragma once

#include "platform/host/main_window.h"
#include "platform/host/workspace_node.h"

namespace ryv {

class Control; // the model of a control, see toolkit/

/// One half of a palette: a stack of pages, of which one is shown. Indexes count from 0 in the order of
/// adding; -1 stands for no page.
class HostGroupControl {
public:
    virtual ~HostGroupControl() = default;

    /// Adds a page that shows `content`, which is not owned and outlives the palette.
    virtual void addPage(CStringView caption, Control& content) = 0;

    /// Selecting a page that is not there changes nothing.
    virtual int selectedPage() = 0;
    virtual void selectPage(int index) = 0;

    virtual bool isMinimized() = 0;
    virtual void setMinimized(bool minimized) = 0;

    /// The control's style bits, whose meaning is the host's own.
    virtual int style() = 0;
    virtual void setStyle(int style) = 0;
};

/// A palette: a row of its own at the top, below it two group controls that share the height.
class HostPalette {
public:
    virtual ~HostPalette() = default;

    virtual CString name() = 0;

    /// What stands above the groups; not owned, outlives the palette.
    virtual void setHeader(Control& content) = 0;

    virtual HostGroupControl& top() = 0;
    virtual HostGroupControl& bottom() = 0;

    /// The share of the height that the top group has, 0 to 1; what lies outside is brought to the nearer
    /// end.
    virtual double topToWholeRatio() = 0;
    virtual void setTopToWholeRatio(double ratio) = 0;

    /// Takes on the host's present theme.
    virtual void applyTheme() = 0;
};

/// The module's side of a palette set: what its window does, and its part in the saved layout.
class PaletteSetClient : public MessageReceiver {
public:
    /// The host saves its workspace, the palette set's part of it into `node`, or restores it from there.
    /// False fails the palette set's part.
    virtual bool saveLayout(WorkspaceNode& node) = 0;
    virtual bool loadLayout(const WorkspaceNode& node) = 0;

protected:
    ~PaletteSetClient() = default;
};

/// How the window of a palette set is made; the style bits are the host's own.
struct PaletteSetWindow {
    std::uint32_t windowStyle = 0;
    std::uint32_t paletteSetStyle = 0;
    ScreenRectangle rectangle;
    bool doubleClicks = false; ///< the window is told of double clicks
};

/// Sides of the main window that a palette set may be docked at; values are combined with "|".
namespace DockingSides {
inline constexpr std::uint32_t left = 0x1;
inline constexpr std::uint32_t right = 0x2;
inline constexpr std::uint32_t top = 0x4;
inline constexpr std::uint32_t bottom = 0x8;
inline constexpr std::uint32_t all = 0xF;
} // namespace DockingSides

/// A palette set; destroying it destroys its window first. Before createWindow() there is none, and what
/// needs a window does nothing.
class HostPaletteSet {
public:
    virtual ~HostPaletteSet() = default;

    virtual void setName(CStringView name) = 0;
    /// By which the host knows the palette set from run to run; a GUID in its registry form.
    virtual void setToolId(CStringView id) = 0;

    /// Makes the window, hidden, a child of the main window. False when there is a window already, the host
    /// has no main window, or the window cannot be made.
    virtual bool createWindow(const PaletteSetWindow& description) = 0;
    /// The timers and messages of this window go to the client. None when there is no window.
    virtual WindowHandle window() = 0;

    virtual void enableDocking(std::uint32_t sides) = 0;

    /// Shows or hides the palette set as a control bar of the main window, at once.
    virtual void show(bool shown) = 0;
    virtual bool isVisible() = 0;

    /// Takes the palette set out of its dock, if it is in one, to a place on the screen.
    virtual void restoreFloating(const ScreenRectangle& rectangle) = 0;
    virtual bool isFloating() = 0;

    /// True when the set, floating, rolls up by itself while it is not used; rollOut() unrolls it now.
    virtual bool rollsUpAutomatically() = 0;
    virtual void rollOut() = 0;

    /// Adds a palette, which the set owns.
    virtual HostPalette& addPalette(CStringView name) = 0;
    /// Takes a palette out and ends it; false when it is not of this set.
    virtual bool removePalette(HostPalette& palette) = 0;
    /// The index of the palette whose tab is selected, from 0; -1 when there is none.
    virtual int activePalette() = 0;

    /// The host's own part of the layout: dock, size, rolling up. False when it cannot be saved or read.
    virtual bool save(WorkspaceNode& node) = 0;
    virtual bool load(const WorkspaceNode& node) = 0;

    /// Takes on the host's present theme, without its palettes.
    virtual void applyTheme() = 0;
};

/// A tool that the host shows and hides by running a command.
struct HostTool {
    CString name;
    CString command; ///< without a prefix or line end
    CString id;      ///< a GUID in its registry form
};

class HostPalettes {
public:
    virtual ~HostPalettes() = default;

    /// A palette set without a window; `client` is not owned and outlives it. Null when the host has no
    /// palettes.
    virtual std::unique_ptr<HostPaletteSet> newPaletteSet(PaletteSetClient& client) = 0;

    /// Makes a tool known; one with the same ID is replaced.
    virtual void registerTool(const HostTool& tool) = 0;
};

/// A host without palettes.
class NullHostPalettes : public HostPalettes {
public:
    std::unique_ptr<HostPaletteSet> newPaletteSet(PaletteSetClient&) override { return nullptr; }
    void registerTool(const HostTool&) override {}
};

} // namespace ryv
