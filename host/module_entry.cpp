#include "host/module_entry.h"

#include "host/application.h"

#include <cstdio>

namespace ryv {

namespace {

CRyvPageManApp theApp;

void refuse(const char* reason, unsigned long given, unsigned long wanted) noexcept {
    std::fprintf(
        stderr, "RyvPageMan: this host's %s is %lu, and the module needs %lu\n", reason, given, wanted);
}

/// The size first: a context that is smaller holds no version.
bool isUnderstood(const ModuleContext* context) noexcept {
    if (!context) {
        std::fputs("RyvPageMan: the host gives the module no context\n", stderr);
    } else if (context->size < offsetof(ModuleContext, platform)) {
        refuse("context size", context->size, sizeof(ModuleContext));
    } else if (context->version != ModuleContext::current) {
        refuse("interface version", context->version, ModuleContext::current);
    } else if (context->size != sizeof(ModuleContext)) {
        refuse("context size", context->size, sizeof(ModuleContext));
    } else if (!context->platform) {
        std::fputs("RyvPageMan: the host gives the module no interfaces\n", stderr);
    } else {
        return true;
    }
    return false;
}

} // namespace

} // namespace ryv

int ryvModuleEntry(int message, ryv::ModuleContext* context) noexcept {
    if (!ryv::HostApplication::isMessage(message))
        return static_cast<int>(ryv::ModuleResult::nothing);
    ryv::ModuleResult result = ryv::ModuleResult::failure;
    if (!ryv::isUnderstood(context))
        return static_cast<int>(result);
    try {
        result = ryv::theApp.dispatch(message, *context);
    } catch (const std::exception& fault) {
        std::fprintf(stderr, "RyvPageMan: message %d failed: %s\n", message, fault.what());
    } catch (...) {
        std::fprintf(stderr, "RyvPageMan: message %d failed\n", message);
    }
    return static_cast<int>(result);
}
