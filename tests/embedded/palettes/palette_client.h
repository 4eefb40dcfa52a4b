// A module's side of a palette set, as small as the tests of palettes need it.
#pragma once

#include "platform/host/palettes.h"
#include "toolkit/label.h"

namespace drafta::test {

/// One palette with two pages at the bottom. Its own part of the layout is the ratio of the palette.
class PaletteClient final : public ryv::PaletteSetClient {
public:
    explicit PaletteClient(ryv::HostPalettes& palettes, ryv::CStringView id = u"{1}")
        : set(palettes.newPaletteSet(*this)) {
        header.setLabel(u"Pump Station");
        details.setLabel(u"Sheet 7");
        preview.setLabel(u"no preview");
        set->setName(u"Project Manager");
        set->setToolId(id);
    }

    bool create() {
        if (!set->createWindow({0, 0, {10, 20, 250, 450}, true}))
            return false;
        set->enableDocking(ryv::DockingSides::left | ryv::DockingSides::top);
        palette = &set->addPalette(u"Projects");
        palette->setHeader(header);
        palette->bottom().addPage(u"Details", details);
        palette->bottom().addPage(u"Preview", preview);
        return true;
    }

    ryv::Label header{1}, details{2}, preview{3};
    std::unique_ptr<ryv::HostPaletteSet> set;
    ryv::HostPalette* palette = nullptr;
    bool works = true; ///< saving and loading
    std::uint32_t lastTimer = 0;

private:
    std::intptr_t onMessage(std::uint32_t, std::uintptr_t, std::intptr_t) override { return 0; }
    void onTimer(std::uint32_t id) override { lastTimer = id; }
    bool saveLayout(ryv::WorkspaceNode& node) override {
        node.setReal(u"ratio", palette->topToWholeRatio());
        return works && set->save(node);
    }
    bool loadLayout(const ryv::WorkspaceNode& node) override {
        double ratio = 0;
        if (node.real(u"ratio", ratio))
            palette->setTopToWholeRatio(ratio);
        return works && set->load(node);
    }
};

} // namespace drafta::test
