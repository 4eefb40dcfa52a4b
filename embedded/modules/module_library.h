// The file of a plug-in module, mapped into the process.
#pragma once

#include "platform/host/module.h"

#include <memory>
#include <string>

namespace drafta {

class ModuleLibrary {
public:
    /// Maps a module by the native path of its file. Null, with one line in `problem` that says why, when the
    /// file is missing or cut off, is no library of this kind of machine, needs something that is missing, or
    /// has no entry point.
    static std::unique_ptr<ModuleLibrary> load(const std::string& file, std::string& problem);

    ModuleLibrary(const ModuleLibrary&) = delete;
    ModuleLibrary& operator=(const ModuleLibrary&) = delete;
    /// Takes the library out of the process.
    ~ModuleLibrary();

    /// Sends a message; what the module answers. A fault that it lets out counts as failure and ends here,
    /// since it is made of the library's code; `fault`, when given, gets its text and is left alone
    /// otherwise.
    ryv::ModuleResult send(
        ryv::ModuleMessage message, ryv::ModuleContext& context, std::string* fault = nullptr) const;

    /// True for one library that was loaded twice, whatever its file is called.
    bool isSameAs(const ModuleLibrary& other) const noexcept { return handle_ == other.handle_; }

private:
    ModuleLibrary(void* handle, ryv::ModuleEntry entry) noexcept : handle_(handle), entry_(entry) {}

    void* handle_;
    ryv::ModuleEntry entry_;
};

} // namespace drafta
