#include "embedded/os/posix_paths.h"
#include "base/encoding.h"
#include "base/paths.h"
#include "embedded/os/native_path.h"

#include <cstdlib>

namespace drafta {

using ryv::CString;
using ryv::CStringView;

CString PosixPaths::currentFolder() {
    return mapper_->fromNative(currentNativeFolder());
}

CString PosixPaths::fullPath(CStringView path) {
    if (!ryv::paths::isRelative(path))
        return ryv::paths::fullPathName(path);
    return ryv::paths::fullPathName(currentFolder().append(u"\\").append(path));
}

CString PosixPaths::temporaryFolder() {
    const char* const named = std::getenv("TMPDIR");
    return mapper_->fromNative(named && named[0] == '/' ? named : "/tmp");
}

CString PosixPaths::fromNative(std::string_view native) {
    return mapper_->fromNative(native);
}

std::string PosixPaths::toNative(CStringView path) {
    std::string native;
    return mapper_->toNative(path, native).ok() ? native : ryv::nameToBytes(path);
}

} // namespace drafta
