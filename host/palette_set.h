// The Project Manager's palette set: its window, the saved layout, and the timer that keeps LISP told of the
// active project.
#pragma once

#include "host/leaving_palettes.h"
#include "manager/reread_timers.h"
#include "platform/host/palettes.h"

#include <memory>

namespace ryv {

class RyvPrmNavManager;
class RyvPrmPalette;

class RyvPrmPaletteSet final : private PaletteSetClient, private ThemeObserver {
public:
    /// The tool under which the host lists the palette set.
    static constexpr CStringView toolName = u"Project Manager";
    static constexpr CStringView toolCommand = u"ryvnav";
    static constexpr CStringView toolId = u"{E7BD0FA7-884D-48F7-A62A-B65A2CDD1F80}";
    static constexpr std::uint32_t retryTimer = timerOfPalette;

    /// The navigation manager outlives the palette set, and hears of its window and its visibility.
    explicit RyvPrmPaletteSet(RyvPrmNavManager& owner);
    RyvPrmPaletteSet(const RyvPrmPaletteSet&) = delete;
    RyvPrmPaletteSet& operator=(const RyvPrmPaletteSet&) = delete;
    /// Stops a running timer first, then ends the window.
    ~RyvPrmPaletteSet();

    /// Makes the window and the palette in it; re-reads of changed projects run from this window then. False
    /// when the host has no palettes, or when the window cannot be made.
    bool create();
    bool hasWindow() const;
    bool isVisible() const;

    /// Starts the timer unless it runs.
    void startRetryTimer();

    /// Takes a palette out; one that is not of this set is left alone. May be called from whatever the
    /// palette's own tree calls: what is under way in it comes to its end.
    void removePalette(HostPalette& palette);
    /// Null before create(), and when it was removed.
    RyvPrmPalette* palette() const noexcept { return palette_.get(); }

    /// The active tab as the saved layout has it; -1 when none was loaded.
    int savedActivePalette() const noexcept { return savedActivePalette_; }

    /// The host's side; null when the host has no palettes.
    HostPaletteSet* host() const noexcept { return host_.get(); }

private:
    std::intptr_t onMessage(std::uint32_t number, std::uintptr_t first, std::intptr_t second) override;
    void onTimer(std::uint32_t id) override;
    bool saveLayout(WorkspaceNode& node) override;
    bool loadLayout(const WorkspaceNode& node) override;
    void themeChanged() override;
    void stopRetryTimer();

    RyvPrmNavManager& owner_;
    std::unique_ptr<RyvPrmPalette> palette_; // what it shows outlives the host's side of it
    LeavingPalettes leaving_;
    std::unique_ptr<HostPaletteSet> host_;
    bool timerRuns_ = false;
    int savedActivePalette_ = -1;
};

} // namespace ryv
