#include "manager/pinned_projects.h"

#include "base/fold.h"
#include "base/text.h"
#include "bridge/platform.h"

#include <algorithm>

namespace ryv {

namespace {

constexpr CStringView keyEnd = u"\\Settings\\PinnedProjects";
constexpr CStringView countName = u"NR_ENTRIES";

/// Empty when the host cannot tell where its profile keeps its settings.
CString settingKey() {
    const CString profile = platform().host.profile->profileKey();
    return profile.empty() ? CString() : profile + CString(keyEnd);
}

CStringArray::iterator findProject(CStringArray& projects, const CString& id) {
    return std::find_if(
        projects.begin(), projects.end(), [&](const CString& each) { return equalNoCase(each, id); });
}

/// The number comes last: who is interrupted leaves entries that nobody reads.
bool write(const CStringArray& projects) {
    Registry& registry = *platform().os.registry;
    const CString key = settingKey();
    if (key.empty() || registry.createKey(key) != RegistryStatus::ok)
        return false;
    for (std::size_t i = 0; i < projects.size(); ++i)
        if (registry.writeString(key, toText(static_cast<long long>(i) + 1), projects[i]) !=
            RegistryStatus::ok)
            return false;
    return registry.writeString(key, countName, toText(static_cast<long long>(projects.size()))) ==
           RegistryStatus::ok;
}

} // namespace

CStringArray readPinnedProjects() {
    CStringArray projects;
    const CString key = settingKey();
    CString text;
    if (key.empty() || platform().os.registry->readString(key, countName, text) != RegistryStatus::ok)
        return projects;
    const int count = std::min(leadingInteger(text), static_cast<int>(mostPinnedProjects));
    for (int i = 1; i <= count; ++i)
        if (platform().os.registry->readString(key, toText(i), text) == RegistryStatus::ok && !text.empty() &&
            findProject(projects, text) == projects.end())
            projects.push_back(text);
    return projects;
}

bool pinProject(CStringView projectId, bool pinned) {
    CStringArray projects = readPinnedProjects();
    const CString id = replaceAll(projectId, u'/', u'\\');
    const auto place = findProject(projects, id);
    if (id.empty() || (place != projects.end()) == pinned)
        return !id.empty();
    if (!pinned)
        projects.erase(place);
    else if (projects.size() < mostPinnedProjects)
        projects.push_back(id);
    else
        return false;
    return write(projects);
}

} // namespace ryv
