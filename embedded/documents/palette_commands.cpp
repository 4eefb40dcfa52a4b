// The commands around palettes, and around the package's small services.
#include "base/fold.h"
#include "base/format.h"
#include "embedded/documents/host.h"
#include "embedded/palettes/palette_actions.h"
#include "embedded/palettes/palette_text.h"
#include "embedded/services/host_texts.h"

namespace drafta {

namespace {

std::vector<PaletteSet*> setsNamed(const PaletteFramework& palettes, ryv::CStringView name) {
    std::vector<PaletteSet*> sets;
    for (PaletteSet* const set : palettes.sets())
        if (name == u"*" || ryv::equalNoCase(set->name(), name))
            sets.push_back(set);
    return sets;
}

ryv::CString actionPrompt() {
    ryv::CString names;
    for (const PaletteAction& action : paletteActions())
        names += (names.empty() ? u"" : u", ") + ryv::CString(action.name);
    return ryv::format(hostText(u"\nAction (%s): "), {names});
}

} // namespace

void Host::definePaletteCommands() {
    const auto add = [this](ryv::CStringView name, std::function<void()> run) {
        addCommand(ryv::HostCommand{u"DRAFTA_PALETTES", ryv::CString(name), ryv::CString(name),
            ryv::CommandFlags::applicationContext | ryv::CommandFlags::transparent, std::move(run)});
    };
    add(u"CLEANSCREENON", [this] { setCleanScreen(true); });
    add(u"CLEANSCREENOFF", [this] { setCleanScreen(false); });
    add(u"PALETTES", [this] { runShowPalettes(); });
    add(u"PALETTE", [this] { runPalette(); });
    add(u"WSSAVE", [this] { runSaveWorkspace(); });
    add(u"WSLOAD", [this] { runLoadWorkspace(); });
    add(u"LINKUPDATE", [this] { clientManager_.announceUpdate(); });
    add(u"LINKCOMPLETE", [this] { clientManager_.announceCompletion(); });
}

void Host::setCleanScreen(bool clean) {
    editor_.setSystemVariable(u"CleanScreenState", ryv::SystemVariable(clean ? 1 : 0));
}

/// Clean-screen mode ends first: what it hides is not what the user has closed.
void Host::keepLayouts() {
    setCleanScreen(false);
    palettes_.saveLayouts();
}

void Host::runShowPalettes() {
    const ryv::CString shown = shownPalettes(palettes_);
    print(shown.empty() ? ryv::CString(hostText(u"\nThere are no palette sets.\n")) : u"\n" + shown);
}

void Host::runPalette() {
    const ryv::CString name = commandLine_.ask(hostText(u"\nPalette set (* for all): "));
    const ryv::CString word = commandLine_.ask(actionPrompt());
    const PaletteAction* const action = findPaletteAction(word);
    const bool hasValue = action && !action->prompt.empty();
    const ryv::CString value =
        hasValue ? commandLine_.ask(u"\n" + ryv::CString(hostText(action->prompt))) : ryv::CString();
    const std::vector<PaletteSet*> sets = setsNamed(palettes_, name); // as they are behind the questions
    bool done = action && !sets.empty();
    for (PaletteSet* const set : sets)
        done = action && action->run(*set, value) && done;
    if (done)
        return;
    if (!action)
        print(ryv::format(hostText(u"\nThere is no action %s.\n"), {word}));
    else if (sets.empty())
        print(ryv::format(hostText(u"\nThere is no palette set %s.\n"), {name}));
    else
        print(ryv::format(hostText(u"\n%s: %s %s cannot be done.\n"), {name, action->name, value}));
    throw CommandCancelled();
}

void Host::runSaveWorkspace() {
    if (!palettes_.saveLayouts())
        throw CommandCancelled();
    print(hostText(u"\nThe layout of the palettes is saved.\n"));
}

void Host::runLoadWorkspace() {
    if (!palettes_.loadLayouts())
        throw CommandCancelled();
    print(hostText(u"\nThe layout of the palettes is loaded.\n"));
}

} // namespace drafta
