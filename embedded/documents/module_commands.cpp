// The commands around plug-in modules.
#include "base/encoding.h"
#include "base/format.h"
#include "embedded/documents/host.h"
#include "embedded/services/host_texts.h"

namespace drafta {

bool Host::loadModule(const std::string& file, std::string& problem) {
    return modules_.load(file, problem);
}

void Host::runLoadModule() {
    const ryv::CString path = askPath(hostText(u"\nModule to load: "));
    std::string problem;
    if (!loadModule(paths().toNative(path), problem))
        print(ryv::format(u"\n%s\n", {ryv::nameFromBytes(problem)}));
}

/// Not at once: the command may have been started by the module, whose code would be gone when it goes on.
void Host::runUnloadModule() {
    const ryv::CString name = commandLine_.ask(hostText(u"\nModule to unload: "));
    commandLine_.sendWork([this, name, announced = modules_.announceUnload(name)] {
        keepLayouts(); // those of the module go with it
        if (!modules_.unload(name))
            print(ryv::format(hostText(u"\nThere is no module %s.\n"), {name}));
    });
}

void Host::runListModules() {
    ryv::CString lines;
    for (const std::string& name : modules_.names())
        lines += ryv::nameFromBytes(name) + u"\n";
    print(u"\n" + (lines.empty() ? ryv::CString(hostText(u"No module is loaded.\n")) : lines));
}

} // namespace drafta
