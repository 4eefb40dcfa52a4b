#include "manager/display_setting.h"

#include "base/text.h"
#include "bridge/platform.h"

#include <algorithm>

namespace ryv {

namespace {

constexpr CStringView keyEnd = u"\\Settings\\CurrDisplayOrder";
constexpr CStringView countName = u"NR_ENTRIES";
constexpr CStringView separatorName = u"SEPARATOR";
constexpr CStringView selectionName = u"ShowSelection";
constexpr char16_t firstEntryName = u'A';
constexpr int defaultColumn = 103;
constexpr CStringView defaultSeparator = u"-";
constexpr int mostEntries = 1000; // a damaged number is not to keep anybody waiting

/// Empty when the host cannot tell where its profile keeps its settings.
CString settingKey() {
    const CString profile = platform().host.profile->profileKey();
    return profile.empty() ? CString() : profile + CString(keyEnd);
}

bool readText(const CString& key, CStringView name, CString& text) {
    return platform().os.registry->readString(key, name, text) == RegistryStatus::ok;
}

bool writeText(const CString& key, CStringView name, CStringView text) {
    return platform().os.registry->writeString(key, name, text) == RegistryStatus::ok;
}

/// "A", "B", "C" and so on, one unit further for each entry.
CString entryName(int index) {
    return CString(1, static_cast<char16_t>(firstEntryName + index));
}

} // namespace

bool readDisplaySetting(CArray<int>& order, CString& separator, bool& showSelection) {
    const CString key = settingKey();
    if (key.empty())
        return false;
    if (platform().os.registry->findKey(key) != RegistryStatus::ok) {
        order = {defaultColumn};
        separator = defaultSeparator;
        showSelection = true;
        return true;
    }
    CString text;
    if (!readText(key, countName, text))
        return false;
    order.clear();
    const int count = std::min(leadingInteger(text), mostEntries);
    for (int index = 0; index < count; ++index)
        if (readText(key, entryName(index), text))
            order.push_back(leadingInteger(text));
    readText(key, separatorName, separator);
    showSelection = !readText(key, selectionName, text) || text == u"1";
    return true;
}

bool writeDisplaySetting(const CArray<int>& order, const CString& separator, bool showSelection) {
    const CString key = settingKey();
    if (key.empty() || platform().os.registry->createKey(key) != RegistryStatus::ok ||
        !writeText(key, countName, toText(static_cast<long long>(order.size()))))
        return false;
    for (std::size_t index = 0; index < order.size(); ++index)
        if (!writeText(key, entryName(static_cast<int>(index)), toText(order[index])))
            return false;
    return writeText(key, separatorName, separator) &&
           writeText(key, selectionName, showSelection ? u"1" : u"0");
}

} // namespace ryv
