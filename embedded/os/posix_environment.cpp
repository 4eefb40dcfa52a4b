#include "embedded/os/posix_environment.h"

#include "base/encoding.h"

#include <cstdlib>

namespace drafta {

ryv::CString PosixEnvironment::variable(ryv::CStringView name) {
    if (name.find(u'\0') != ryv::CStringView::npos) // what is before it would be another name
        return {};
    const char* const value = std::getenv(ryv::nameToBytes(name).c_str());
    return value ? ryv::nameFromBytes(value) : ryv::CString();
}

} // namespace drafta
