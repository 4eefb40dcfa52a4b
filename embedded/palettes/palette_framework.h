// The host's palettes: the sets that are there, the tools that open them, and their saved layouts.
#pragma once

#include "embedded/palettes/palette_set.h"
#include "embedded/palettes/workspace.h"

namespace drafta {

class PaletteFramework final : public ryv::HostPalettes {
public:
    /// All of them outlive the framework, and the framework outlives the palette sets. `warn` gets a line
    /// without its end about a layout that cannot be saved or taken on.
    struct Parts {
        ryv::MessageLoop& loop;
        ryv::HostMainWindow& mainWindow;
        Workspace& workspace;
        std::function<void(ryv::CStringView)> warn;
    };
    explicit PaletteFramework(Parts parts) : parts_(std::move(parts)) {}
    PaletteFramework(const PaletteFramework&) = delete;
    PaletteFramework& operator=(const PaletteFramework&) = delete;

    /// A palette set has come, or is about to end and is no longer among the sets.
    ryv::Event<> setsChanged;

    /// In the order in which they were made.
    const std::vector<PaletteSet*>& sets() const noexcept { return sets_; }
    const std::vector<ryv::HostTool>& tools() const noexcept { return tools_; }

    /// Lets each palette set that has a window and was shown save its layout, and writes them all; of others
    /// what is saved stays, since nobody has arranged them. False after a failure,
    /// which has been told.
    bool saveLayouts();
    /// Reads the saved layouts again and lets each palette set take on its own.
    bool loadLayouts();

    std::unique_ptr<ryv::HostPaletteSet> newPaletteSet(ryv::PaletteSetClient& client) override;
    void registerTool(const ryv::HostTool& tool) override;

    /// For the palette sets.
    ryv::MessageLoop& loop() const noexcept { return parts_.loop; }
    ryv::HostMainWindow& mainWindow() const noexcept { return parts_.mainWindow; }
    void enter(PaletteSet& set);
    void leave(PaletteSet& set);
    /// Lets the set take on its layout when the host handles its messages, if it is still there then.
    void expectLayout(PaletteSet& set);
    bool applyLayout(PaletteSet& set);

private:
    bool isThere(const PaletteSet* set) const noexcept;

    Parts parts_;
    std::vector<PaletteSet*> sets_;
    std::vector<ryv::HostTool> tools_;
};

} // namespace drafta
