#include "embedded/services/registry_settings.h"

#include <algorithm>

namespace drafta {

using ryv::CString;
using ryv::CStringView;
using ryv::RegistryStatus;

CString RegistrySettings::keyOf(CStringView first) const {
    return first.empty() ? root_ : CString(root_).append(u"\\").append(first);
}

namespace {

// A setting is a line that people read in the registry's file; what is longer was passed by mistake.
constexpr std::size_t longest = 32'767;

bool areLinesOfUse(std::initializer_list<CStringView> texts) {
    return std::all_of(texts.begin(), texts.end(), [](CStringView text) { return text.size() <= longest; });
}

} // namespace

bool RegistrySettings::RyvGetRegSetting(CStringView first, CStringView second, CString& value) {
    return registry_.readString(keyOf(first), second, value) == RegistryStatus::ok;
}

bool RegistrySettings::RyvSetRegSetting(CStringView first, CStringView second, CStringView value) {
    const CString key = keyOf(first);
    return areLinesOfUse({first, second, value}) && registry_.createKey(key) == RegistryStatus::ok &&
           registry_.writeString(key, second, value) == RegistryStatus::ok;
}

} // namespace drafta
