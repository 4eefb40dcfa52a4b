// The navigation manager: the one object that holds the module together from start-up to shut-down. It owns
// the project manager (through its base), the palette set, the reactors and what they hand to each other.
#pragma once

#include "manager/nav_state.h"
#include "manager/subsystem_notifier.h"

#include <memory>

namespace ryv {

class HostPalette;
class RereadWindow;
class RyvPrmDocManagerReactor;
class RyvPrmEditorReactor;
class RyvPrmInputContextReactor;
class RyvPrmPalette;
class RyvPrmPaletteSet;

class RyvPrmNavManager final : public NavState {
public:
    /// Reads the palette set's visibility of the last run.
    RyvPrmNavManager();
    RyvPrmNavManager(const RyvPrmNavManager&) = delete;
    RyvPrmNavManager& operator=(const RyvPrmNavManager&) = delete;
    /// Takes the reactors off the host, ends the palette set and the project manager, and writes the
    /// visibility for the next run.
    ~RyvPrmNavManager() override;

    /// Makes the project manager, the palette set and the reactors, and adds these to the host. Called once,
    /// when this object is the one in navState().
    void initialise();

    /// A document was opened: its idle and busy states are followed from now on.
    void documentLoaded();

    // Palette set ---------------------------------------------------------------------------------------

    /// Makes the palette set unless it is there with its window. False without a main window, while creation
    /// is blocked, and when the host has no palettes.
    bool createPaletteSet();
    /// Shows or hides it, making it first when it is missing. True without showing anything while the host
    /// works in the background.
    bool showPaletteSet(bool shown);
    /// True when it is there, has its window and the host shows it.
    bool isPaletteSetVisible() const;
    void removePalette(HostPalette& palette);
    /// Tells LISP which project is active; when that fails, it is tried again later. Nothing happens without
    /// an active project.
    void tellActiveProject();
    /// A second later LISP is told again which project is active; nothing happens when that is planned
    /// already. Without the palette set's window it is told when the host is idle next.
    void startRetryTimer();

    /// Null until it is made.
    RyvPrmPaletteSet* paletteSet() const noexcept { return paletteSet_.get(); }
    /// The first palette of the palette set, or null.
    RyvPrmPalette* firstPalette() const noexcept;

    /// While set, createPaletteSet() makes nothing.
    void blockCreation(bool blocked) noexcept { creationBlocked_ = blocked; }
    /// Whether the palette set was visible when the layout was saved last; true until something else is
    /// known.
    bool remembersVisible() const noexcept { return remembersVisible_; }
    void rememberVisible(bool visible) noexcept { remembersVisible_ = visible; }

    // Reactors; null before initialise() ----------------------------------------------------------------

    RyvPrmInputContextReactor* inputContextReactor() const noexcept { return inputContext_.get(); }
    RyvPrmEditorReactor* editorReactor() const noexcept { return editor_.get(); }

    /// Shows the palette set when it was visible at the end of the last run, unless it was shown or hidden in
    /// this run already: one that the user has hidden stays hidden while loading is tried again.
    void afterStartupLoading() override;

private:
    bool hasPaletteWindow() const;
    void placeFirst();
    void readVisibility();
    void writeVisibility() const;

    std::unique_ptr<RyvPrmInputContextReactor> inputContext_;
    std::unique_ptr<RyvPrmPaletteSet> paletteSet_;
    // What re-reads run from until the palette set has a window.
    std::unique_ptr<RereadWindow> withoutPalette_;
    std::unique_ptr<RyvPrmSubsystemNotifier> notifier_;
    std::unique_ptr<RyvPrmDocManagerReactor> documents_;
    std::unique_ptr<RyvPrmEditorReactor> editor_;
    bool placed_ = false;
    bool creationBlocked_ = false;
    bool remembersVisible_ = true;
    bool visibilityDecided_ = false; // shown, hidden or found visible in this run
};

/// The navigation manager, or null before start-up and after shut-down.
RyvPrmNavManager* GetNavManager() noexcept;

} // namespace ryv
