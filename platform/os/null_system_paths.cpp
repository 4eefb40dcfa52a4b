#include "base/encoding.h"
#include "base/paths.h"
#include "platform/os/system_paths.h"

namespace ryv {

CString NullSystemPaths::currentFolder() {
    return u"\\";
}

CString NullSystemPaths::fullPath(CStringView path) {
    if (!paths::isRelative(path))
        return paths::fullPathName(path);
    return paths::fullPathName(CString(u"\\").append(path));
}

CString NullSystemPaths::temporaryFolder() {
    return u"\\";
}

CString NullSystemPaths::fromNative(std::string_view native) {
    return fullPath(nameFromBytes(native));
}

std::string NullSystemPaths::toNative(CStringView path) {
    return nameToBytes(path);
}

} // namespace ryv
