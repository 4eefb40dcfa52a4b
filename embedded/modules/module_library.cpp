#include "embedded/modules/module_library.h"

#include "embedded/modules/library_file.h"

#include <dlfcn.h>
#include <filesystem>

namespace drafta {

namespace {

/// The loader begins its messages with the path, which is told anyway.
std::string loaderProblem(const std::string& file) {
    const char* const text = ::dlerror();
    const std::string problem = text ? text : "it cannot be loaded";
    return problem.starts_with(file + ": ") ? problem.substr(file.size() + 2) : problem;
}

} // namespace

std::unique_ptr<ModuleLibrary> ModuleLibrary::load(const std::string& file, std::string& problem) {
    std::error_code ignored; // a name without a folder would be looked for where the system has its libraries
    const std::string path = std::filesystem::absolute(file, ignored).string();
    problem = whyNoLibrary(path);
    if (!problem.empty()) {
        problem = file + ": " + problem;
        return nullptr;
    }
    void* const handle = ::dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!handle) {
        problem = file + ": " + loaderProblem(path);
        return nullptr;
    }
    const auto entry = reinterpret_cast<ryv::ModuleEntry>(::dlsym(handle, ryv::moduleEntryName));
    if (!entry) {
        ::dlclose(handle);
        problem = file + ": it is not a module of this host, which would have " + ryv::moduleEntryName;
        return nullptr;
    }
    return std::unique_ptr<ModuleLibrary>(new ModuleLibrary(handle, entry));
}

ModuleLibrary::~ModuleLibrary() {
    ::dlclose(handle_);
}

ryv::ModuleResult ModuleLibrary::send(
    ryv::ModuleMessage message, ryv::ModuleContext& context, std::string* fault) const {
    std::string text;
    try {
        return static_cast<ryv::ModuleResult>(entry_(static_cast<int>(message), &context));
    } catch (const std::exception& thrown) {
        text = thrown.what();
    } catch (...) {
        text = "it has thrown something that is no exception";
    }
    if (fault)
        *fault = text;
    return ryv::ModuleResult::failure;
}

} // namespace drafta
