#include "siblings/lock_record.h"

#include "base/fold.h"
#include "base/text.h"

namespace ryv {

CString LockRecord::holder() const {
    return user + u"(" + machine + u")";
}

CString makeLockRecord(
    CStringView user, CStringView computer, CStringView fullName, CStringView date, CStringView time) {
    CString record(user);
    record.append(u"\n").append(computer).append(u" ").append(fullName);
    return record.append(u"\n").append(date).append(u"  ").append(time);
}

std::optional<LockRecord> parseLockRecord(CStringView record) {
    const std::size_t first = findUnit(record, u'\n');
    if (first == record.size())
        return std::nullopt;
    const std::size_t second = findUnit(record, u'\n', first + 1);
    if (second == record.size() || second == first + 1)
        return std::nullopt;
    LockRecord parts;
    parts.user = record.substr(0, first);
    parts.machine = record.substr(first + 1, second - first - 2);
    parts.time = record.substr(second + 1);
    return parts;
}

CStringView computerOf(CStringView record) {
    if (!parseLockRecord(record))
        return {};
    const CStringView line = record.substr(findUnit(record, u'\n') + 1);
    return line.substr(0, line.find_first_of(u" \n"));
}

bool haveSameHolder(CStringView record, CStringView other) {
    const auto a = parseLockRecord(record);
    const auto b = parseLockRecord(other);
    return a && b && equalNoCase(a->holder(), b->holder());
}

} // namespace ryv
