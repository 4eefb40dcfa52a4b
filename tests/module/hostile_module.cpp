// A module that does all that a module should not: takes nothing back, lets faults out, loads others in the
// middle of things. What it does at which message is in the variable USERS1: "start", "document" or "end",
// followed by "fail", "throw", "leave" or the paths of modules to be loaded.
#include "platform/host/module.h"

#include "base/encoding.h"
#include "base/export.h"

#include <sstream>
#include <stdexcept>

namespace {

using ryv::CString;
using ryv::CStringView;

ryv::Platform* host = nullptr;

void tell(const std::string& text) {
    host->host.console->print(ryv::decodeUtf8("\n" + text + "\n"));
}

class Listener final : public ryv::EditorObserver,
                       public ryv::DocumentObserver,
                       public ryv::InputContextObserver,
                       public ryv::ThemeObserver,
                       public ryv::RyvPdsClientReactor,
                       public ryv::MessageReceiver,
                       public ryv::FileMonitorReceiver {
public:
    void systemVariableChanged(CStringView) override { tell("heard: variable"); }
    void documentCreated(ryv::DocumentId) override { tell("heard: document"); }
    void endQuiescentState(ryv::DocumentId) override { tell("heard: input"); }
    void themeChanged() override { tell("heard: theme"); }
    void onUpdate() override { tell("heard: update"); }
    void onCompletion() override {}
    std::intptr_t onMessage(std::uint32_t, std::uintptr_t, std::intptr_t) override {
        tell("heard: message");
        return 0;
    }
    void onTimer(std::uint32_t) override { tell("heard: timer"); }
    void fileChanged(CStringView, ryv::FileChange) override { tell("heard: file"); }
    void fileRenamed(CStringView, CStringView) override {}
};

Listener& listener() {
    static Listener only;
    return only;
}

void queueWork() {
    const std::string text(100, 'x'); // too long for the function itself, whose end then frees it
    host->host.documents->executeInApplicationContext([text] { tell("heard: work " + text); });
    host->os.messages->call([text] { tell("heard: call " + text); });
}

void leaveEverything() {
    host->host.editor->add(listener());
    host->host.documents->add(listener());
    host->host.documents->attach(host->host.documents->currentDocument(), listener());
    host->host.mainWindow->add(listener());
    host->services.clientManager->addReactor(listener());
    const ryv::WindowHandle window = host->os.messages->createWindow(listener());
    host->os.messages->setTimer(window, 1, std::chrono::milliseconds(1));
    host->os.messages->post(window, 1, 0, 0);
    static_cast<void>(host->os.monitor->start(listener()));
    static_cast<void>(host->os.monitor->watch(u"\\tmp\\watched"));
    for (const CStringView name : {u"HOSTILEFUNCTION", u"HOSTILEOTHER"})
        host->host.lisp->defineFunction(name, 1);
    host->host.lisp->registerHandler(1, [] { return 1; });
    queueWork();
}

void addCommand(CStringView group, CStringView name, std::function<void()> run) {
    host->host.commands->addCommand({CString(group), CString(name), CString(name),
        ryv::CommandFlags::applicationContext, std::move(run)});
}

/// What is to be done at a moment; empty for nothing.
std::string plan(const std::string& moment) {
    ryv::SystemVariable value = CString();
    host->host.editor->systemVariable(u"USERS1", value);
    const std::string text = ryv::toUtf8(std::get<CString>(value));
    return text.starts_with(moment + " ") ? text.substr(moment.size() + 1) : "";
}

bool act(const std::string& moment) {
    tell("told: " + moment);
    std::istringstream words(plan(moment));
    for (std::string word; words >> word;) {
        if (word == "throw")
            throw std::runtime_error("a fault of its own");
        if (word == "fail" || word == "leave")
            leaveEverything();
        else
            host->host.commands->runCommand({u"_.LOADMODULE", ryv::decodeUtf8(word)});
        if (word == "fail")
            return false;
    }
    return true;
}

void addCommands() {
    addCommand(u"DRAFTA", u"HOSTILELEAVE", leaveEverything);
    addCommand(u"DRAFTA", u"HOSTILEGROUP", [] { host->host.commands->removeGroup(u"DRAFTA"); });
    addCommand(u"HOSTILE", u"HOSTILEQUIT", [] {
        queueWork();
        host->host.commands->runCommand({u"_.QUIT"});
    });
    addCommand(u"HOSTILE", u"HOSTILEUNLOAD", [] {
        host->host.commands->runCommand({u"_.UNLOADMODULE", u"hostile_module.so"});
        queueWork();
    });
}

} // namespace

extern "C" RYV_EXPORT int ryvModuleEntry(int message, ryv::ModuleContext* context) {
    host = context->platform;
    const char* const moments[] = {"start", "end", "document"};
    if (message == 0)
        addCommands();
    return static_cast<int>(act(moments[message]) ? ryv::ModuleResult::success : ryv::ModuleResult::failure);
}
