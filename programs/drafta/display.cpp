#include "programs/drafta/display.h"

#include <QCoreApplication>
#include <QDir>
#include <QLibraryInfo>

#include <cstdlib>
#include <dlfcn.h>

namespace drafta {

namespace {

bool isSet(const char* name) {
    const char* const value = std::getenv(name);
    return value && *value;
}

/// The library is one that the window's own plug-in for this kind of display needs.
bool xDisplayAnswers() {
    void* const library = ::dlopen("libxcb.so.1", RTLD_NOW);
    if (!library)
        return false;
    const auto connect = reinterpret_cast<void* (*)(const char*, int*)>(::dlsym(library, "xcb_connect"));
    const auto hasError = reinterpret_cast<int (*)(void*)>(::dlsym(library, "xcb_connection_has_error"));
    const auto disconnect = reinterpret_cast<void (*)(void*)>(::dlsym(library, "xcb_disconnect"));
    bool answers = false;
    if (connect && hasError && disconnect) {
        void* const connection = connect(nullptr, nullptr);
        answers = hasError(connection) == 0;
        disconnect(connection);
    }
    ::dlclose(library);
    return answers;
}

bool hasPlugin(const QString& pattern) {
    const QDir folder(QLibraryInfo::path(QLibraryInfo::PluginsPath) + QStringLiteral("/platforms"));
    return !folder.entryList({pattern}, QDir::Files).isEmpty();
}

} // namespace

bool hasDisplay() {
    if (isSet("QT_QPA_PLATFORM"))
        return true; // whoever sets it knows what is there
    if (isSet("WAYLAND_DISPLAY") && hasPlugin(QStringLiteral("*wayland*")))
        return true;
    return isSet("DISPLAY") && xDisplayAnswers();
}

} // namespace drafta
