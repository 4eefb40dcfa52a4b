#include "embedded/documents/modules.h"

#include "base/encoding.h"
#include "base/fold.h"
#include "base/format.h"

#include <algorithm>
#include <filesystem>
#include <optional>

namespace drafta {

using ryv::ModuleMessage;
using ryv::ModuleResult;

Modules::~Modules() {
    isEnding_ = true; // or one that loads another while it ends would keep the host
    while (!loaded_.empty())
        end(loaded_.back());
}

bool Modules::load(const std::string& file, std::string& problem) {
    const auto module = std::make_shared<Module>();
    module->name = std::filesystem::path(file).filename().string();
    if (!mayLoad(*module, problem))
        return false;
    module->library = ModuleLibrary::load(file, problem);
    if (!module->library || !mayLoad(*module, problem))
        return false;
    SeatHost& host = *this;
    module->seat = std::make_unique<ModuleSeat>(ports_, host);
    loaded_.push_back(module); // now, so that it cannot load itself
    if (!start(*module, problem)) {
        problem = file + ": " + problem;
        retire(module);
        return false;
    }
    module->isRunning = true;
    tellOfDocuments(*module);
    return true;
}

/// Asked twice: names are compared before a library is mapped, and libraries can only be then.
bool Modules::mayLoad(const Module& module, std::string& problem) const {
    if (isEnding_)
        problem = module.name + ": the host is ending";
    for (const auto& other : loaded_) {
        const bool isSame = module.library && module.library->isSameAs(*other->library);
        if (!isSame && !ryv::equalNoCase(ryv::nameFromBytes(other->name), ryv::nameFromBytes(module.name)))
            continue;
        problem = module.name + ": it is loaded already";
        if (isSame)
            problem += " as " + other->name;
        if (!other->unloading.expired())
            problem += ", and will be unloaded when the host is idle";
        return false;
    }
    return !isEnding_;
}

bool Modules::start(Module& module, std::string& problem) {
    problem = "the module does not start in this host";
    std::string fault;
    const ModuleResult answer =
        module.library->send(ModuleMessage::initialiseApplication, module.seat->context(), &fault);
    if (!fault.empty())
        problem += ": " + fault;
    return answer == ModuleResult::success;
}

/// Each document is current while the module hears of it, as one that is just opened would be.
void Modules::tellOfDocuments(Module& module) {
    for (const ryv::DocumentId document : documents_.documents())
        tellOf(module, document);
    if (const ryv::DocumentId current = documents_.currentDocument(); current != ryv::DocumentId::none)
        documents_.announce(current);
}

void Modules::documentLoaded() {
    const ryv::DocumentId document = documents_.currentDocument();
    const auto all = loaded_; // what a module does may load another one, which hears of it then
    for (const auto& module : all)
        tellOf(*module, document);
}

/// What other modules did may have closed the document, or opened another one.
void Modules::tellOf(Module& module, ryv::DocumentId document) {
    if (!module.isRunning || !documents_.find(document) || !module.told.insert(document).second)
        return;
    std::optional<Documents::Visit> visit;
    if (documents_.currentDocument() != document)
        visit.emplace(documents_, document);
    send(module, ModuleMessage::loadDrawing);
}

void Modules::send(const Module& module, ModuleMessage message) {
    std::string fault;
    module.library->send(message, module.seat->context(), &fault);
    if (!fault.empty())
        ports_.host.console->print(
            ryv::format(u"\n%s: failed: %s\n", {ryv::nameFromBytes(module.name), ryv::decodeUtf8(fault)}));
}

std::shared_ptr<Modules::Module> Modules::find(ryv::CStringView name) const {
    for (const auto& module : loaded_)
        if (module->isRunning && ryv::equalNoCase(ryv::nameFromBytes(module->name), name))
            return module;
    return nullptr;
}

std::shared_ptr<const void> Modules::announceUnload(ryv::CStringView name) {
    const std::shared_ptr<Module> module = find(name);
    if (!module)
        return nullptr;
    std::shared_ptr<const void> announced = module->unloading.lock();
    if (!announced)
        module->unloading = announced = std::make_shared<const bool>(true);
    return announced;
}

bool Modules::unload(ryv::CStringView name) {
    const std::shared_ptr<Module> module = find(name);
    if (module)
        end(module);
    return module != nullptr;
}

void Modules::end(std::shared_ptr<Module> module) {
    module->isRunning = false;
    send(*module, ModuleMessage::unloadApplication);
    retire(std::move(module));
}

/// All seats are empty before the first library goes: what one module was given to queue may be another's.
void Modules::retire(std::shared_ptr<Module> module) {
    module->seat->drop();
    std::erase(loaded_, module);
    ended_.push_back(std::move(module));
    if (!loaded_.empty())
        return;
    for (const auto& each : ended_)
        each->seat->drop();
    while (!ended_.empty())
        ended_.pop_back();
}

std::vector<std::string> Modules::names() const {
    std::vector<std::string> names;
    for (const auto& module : loaded_)
        if (module->isRunning)
            names.push_back(module->name);
    return names;
}

void Modules::dropFunctions(const std::set<int>& codes, const std::set<ryv::CString>& names) {
    lisp_.dropHandlers(codes);
    for (const ryv::DocumentId id : documents_.documents()) {
        lisp::Interpreter& lisp = documents_.find(id)->lisp->interpreter();
        for (const ryv::CString& name : names)
            if (const std::optional<int> code = lisp.externalCode(name); code && codes.contains(*code))
                lisp.setSymbol(name, ryv::HostResultBuffer().addNil());
    }
}

} // namespace drafta
