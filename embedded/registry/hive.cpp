#include "embedded/registry/hive.h"

#include "base/fold.h"

namespace drafta {

using ryv::CString;
using ryv::CStringView;

namespace {

constexpr char16_t separator = u'\\';

CString withoutEmptyComponents(CStringView path) {
    CString result;
    for (const char16_t unit : path)
        if (unit != separator || (!result.empty() && result.back() != separator))
            result += unit;
    if (!result.empty() && result.back() == separator)
        result.pop_back();
    return result;
}

CString foldedPath(CStringView path) {
    return ryv::toUpper(withoutEmptyComponents(path));
}

} // namespace

/// The key itself, else the first one below it, else the end.
Hive::Keys::const_iterator Hive::findAtOrBelow(const CString& folded) const {
    if (const auto own = keys_.find(folded); own != keys_.end())
        return own;
    const CString above = folded + separator;
    const auto below = keys_.lower_bound(above);
    return below != keys_.end() && below->first.starts_with(above) ? below : keys_.end();
}

bool Hive::hasKey(CStringView path) const {
    const CString folded = foldedPath(path);
    return folded.empty() || findAtOrBelow(folded) != keys_.end();
}

/// The path with the spelling of the longest part of it that is there already. Folding keeps lengths, so the
/// part ends at the same unit in every spelling.
CString Hive::spelled(const CString& path) const {
    const CString folded = ryv::toUpper(path);
    for (std::size_t end = folded.size(); end != CString::npos && end != 0;
         end = folded.rfind(separator, end - 1))
        if (const auto hit = findAtOrBelow(folded.substr(0, end)); hit != keys_.end())
            return hit->second.path.substr(0, end) + path.substr(end);
    return path;
}

bool Hive::makeKey(CStringView path) {
    if (hasKey(path))
        return false;
    const CString clean = withoutEmptyComponents(path);
    keys_[ryv::toUpper(clean)].path = spelled(clean);
    return true;
}

const Hive::Value* Hive::find(CStringView path, CStringView name) const {
    const auto key = keys_.find(foldedPath(path));
    if (key == keys_.end())
        return nullptr;
    const auto hit = key->second.values.find(ryv::toUpper(name));
    return hit == key->second.values.end() ? nullptr : &hit->second.value;
}

bool Hive::set(CStringView path, CStringView name, Value value) {
    const CString folded = foldedPath(path);
    if (!keys_.contains(folded)) // the root, or one that only stood above others
        keys_[folded] = {spelled(withoutEmptyComponents(path)), {}};
    auto& values = keys_[folded].values;
    const auto [hit, isAdded] = values.try_emplace(ryv::toUpper(name));
    if (isAdded)
        hit->second.name = name;
    else if (hit->second.value == value)
        return false;
    hit->second.value = std::move(value);
    return true;
}

} // namespace drafta
