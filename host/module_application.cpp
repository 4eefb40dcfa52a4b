#include "host/module_application.h"

#include "bridge/platform.h"
#include "resources/language.h"
#include "resources/messages.h"

namespace ryv {

namespace {

constexpr std::size_t longestLocalName = 131;

CString localNameOf(const CommandTableEntry& entry) {
    if (!entry.localName.empty() || entry.localNameResource == CommandTableEntry::noResource)
        return CString(entry.localName);
    return CString(messageText(static_cast<int>(entry.localNameResource)).substr(0, longestLocalName));
}

} // namespace

ModuleResult RyvModuleApp::onInitialiseApplication(ModuleContext& context) {
    setPlatform(context.platform);
    setLanguage(languageOf(*platform().os.environment));
    for (const CommandTableEntry& entry : commands_)
        if (!entry.globalName.empty())
            platform().host.commands->addCommand({CString(entry.group), CString(entry.globalName),
                localNameOf(entry), entry.flags, entry.handler});
    return ModuleResult::success;
}

/// What a derived class has registered is gone by now.
ModuleResult RyvModuleApp::onUnloadApplication(ModuleContext&) {
    CStringView group;
    for (const CommandTableEntry& entry : commands_)
        if (entry.group != group) // the entries of a group stand together
            platform().host.commands->removeGroup(group = entry.group);
    setPlatform(nullptr);
    return ModuleResult::success;
}

} // namespace ryv
