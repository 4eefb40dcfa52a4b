// The plug-in modules that the host has loaded.
#pragma once

#include "embedded/documents/command_stack.h"
#include "embedded/documents/documents.h"
#include "embedded/documents/lisp_port.h"
#include "embedded/modules/module_library.h"
#include "embedded/modules/module_seat.h"

namespace drafta {

class Modules final : private SeatHost {
public:
    /// All outlive this object.
    Modules(ryv::Platform& ports, Documents& documents, LispPort& lisp, CommandStack& commands) noexcept
        : ports_(ports), documents_(documents), lisp_(lisp), commands_(commands) {}
    Modules(const Modules&) = delete;
    Modules& operator=(const Modules&) = delete;
    /// Ends all, the newest first, since later ones may build on earlier ones. None is loaded meanwhile.
    ~Modules() override;

    /// Loads a module by the native path of its file, starts it, and tells it of the documents that are open.
    /// False, with one line in `problem`, when the file is no module, the module does not start, or the file
    /// or one of that name is loaded; nothing of the module is left then.
    bool load(const std::string& file, std::string& problem);

    /// Ends the module of a file name, whatever the case. Its file is taken out of the process together with
    /// that of the last one, since those that stay may have been given functions of it to call. False when
    /// there is none. Not from within anything that the module has begun.
    bool unload(ryv::CStringView name);

    /// Says that unload() will come, for as long as the result lives; null when there is no such module.
    std::shared_ptr<const void> announceUnload(ryv::CStringView name);

    /// Tells the modules of a new document, which is current. Each hears of a document once.
    void documentLoaded();

    /// The file names of those that were started and not ended, the oldest first.
    std::vector<std::string> names() const;

private:
    struct Module {
        std::string name;
        std::unique_ptr<ModuleLibrary> library; // ends behind the seat, which holds functions that lie in it
        std::unique_ptr<ModuleSeat> seat;
        bool isRunning = false; // it has answered the first message and not been sent the last one
        std::set<ryv::DocumentId> told;
        std::weak_ptr<const void> unloading; // there while it is announced
    };

    bool mayLoad(const Module& module, std::string& problem) const;
    bool start(Module& module, std::string& problem);
    void tellOfDocuments(Module& module);
    void tellOf(Module& module, ryv::DocumentId document);
    void send(const Module& module, ryv::ModuleMessage message);
    std::shared_ptr<Module> find(ryv::CStringView name) const;
    void end(std::shared_ptr<Module> module);
    void retire(std::shared_ptr<Module> module);

    int newCode() override { return ++lastCode_; }
    void dropFunctions(const std::set<int>& codes, const std::set<ryv::CString>& names) override;
    void dropCommand(ryv::CStringView group, ryv::CStringView globalName) override {
        commands_.remove(group, globalName);
    }

    ryv::Platform& ports_;
    Documents& documents_;
    LispPort& lisp_;
    CommandStack& commands_;
    std::vector<std::shared_ptr<Module>> loaded_; // those that are starting or ending too
    std::vector<std::shared_ptr<Module>> ended_;  // as long as others are loaded
    bool isEnding_ = false;
    int lastCode_ = 0;
};

} // namespace drafta
