// What the module lets other modules link. Everything else is hidden (the build's visibility preset), so that
// two modules in one process never share code or state by accident.
#pragma once

#if defined(_WIN32)
#define RYV_EXPORT // a module-definition file would name what leaves the library there
#else
#define RYV_EXPORT __attribute__((visibility("default")))
#endif
