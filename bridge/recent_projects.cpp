#include "bridge/recent_projects.h"

#include "bridge/lisp.h"

namespace ryv {

namespace {

/// The flags are the fourth list behind the one of the paths.
constexpr int flagList = 4;

ResultType typeAt(const HostResultBuffer& answer, std::size_t place) {
    return answer.at(place).type;
}

/// Appends the strings from `place` on; the place of the first other value, or the end.
std::size_t takeStrings(const HostResultBuffer& answer, std::size_t place, CStringArray& strings) {
    for (; place < answer.size(); ++place) {
        const CString* const text = answer.stringAt(place);
        if (!text)
            break;
        strings.push_back(*text);
    }
    return place;
}

/// The place behind the list begin of the flags, or the end.
std::size_t findFlags(const HostResultBuffer& answer, std::size_t place) {
    long depth = 0; // below 0 behind list ends that close nothing; such lists are not counted
    int lists = 0;
    for (; place < answer.size(); ++place) {
        if (typeAt(answer, place) == ResultType::listEnd)
            --depth;
        else if (typeAt(answer, place) == ResultType::listBegin && depth++ == 0 && ++lists == flagList)
            return place + 1;
    }
    return place;
}

} // namespace

RecentProjects recentProjectsIn(const HostResultBuffer& answer) {
    RecentProjects projects;
    if (answer.empty() || typeAt(answer, 0) != ResultType::listBegin)
        return projects;
    const std::size_t end = takeStrings(answer, 1, projects.paths);
    if (end < answer.size() && typeAt(answer, end) == ResultType::listEnd)
        takeStrings(answer, findFlags(answer, end + 1), projects.flags);
    return projects;
}

bool readRecentProjects(RecentProjects& projects) {
    HostResultBuffer answer;
    if (invokeLisp(HostResultBuffer().addString(u"c:kq_get_recent_prj_lst"), answer) != LispStatus::success)
        return false;
    projects = recentProjectsIn(answer);
    return !projects.paths.empty() || !projects.flags.empty();
}

} // namespace ryv
