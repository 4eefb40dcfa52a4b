// Whether files exist.
#pragma once

#include "bridge/platform.h"

namespace ryv {

/// True when something stands at the path, whatever it is.
inline bool exists(CStringView path) {
    FileInformation found;
    return platform().os.files->information(path, found).ok();
}

} // namespace ryv
