#include "embedded/services/registry_settings.h"

namespace drafta {

using ryv::CString;
using ryv::CStringView;
using ryv::RegistryStatus;

CString RegistrySettings::keyOf(CStringView first) const {
    return first.empty() ? root_ : CString(root_).append(u"\\").append(first);
}

bool RegistrySettings::RyvGetRegSetting(CStringView first, CStringView second, CString& value) {
    return registry_.readString(keyOf(first), second, value) == RegistryStatus::ok;
}

bool RegistrySettings::RyvSetRegSetting(CStringView first, CStringView second, CStringView value) {
    const CString key = keyOf(first);
    return registry_.createKey(key) == RegistryStatus::ok &&
           registry_.writeString(key, second, value) == RegistryStatus::ok;
}

} // namespace drafta
