#include "manager/own_lock_record.h"

#include "bridge/platform.h"
#include "siblings/lock_record.h"

namespace ryv {

namespace {

constexpr std::size_t longestFullName = 4095; // units; a longer one does not fit the package's buffers
constexpr std::size_t longestName = 256;      // of the user, and of the computer

CString unlessLonger(CString text, std::size_t limit) {
    if (text.size() > limit)
        text.clear();
    return text;
}

CString fullNameOfProfile() {
    const CString key = platform().host.profile->profileKey() + u"\\FixedProfile\\General";
    CString name;
    if (platform().os.registry->readString(key, u"FULLNAME", name) != RegistryStatus::ok)
        name.clear();
    return unlessLonger(std::move(name), longestFullName);
}

/// The account data come last and are asked for the account whose name is in the buffer, which is empty when
/// it comes to that: no account has that name, so nothing is asked. The holder of a lock must read the same
/// as in the records that other copies of the program have written.
CString fullName() {
    CString name = fullNameOfProfile();
    if (name.empty())
        name = unlessLonger(platform().os.environment->variable(u"FULLNAME"), longestFullName);
    return name;
}

} // namespace

std::optional<CString> makeOwnLockRecord() {
    const CString user = unlessLonger(platform().os.identity->userName(), longestName);
    const CString computer = unlessLonger(platform().os.identity->computerName(), longestName);
    if (user.empty() || computer.empty())
        return std::nullopt;
    Clock& clock = *platform().os.clock;
    const LocalTime now = clock.localTime();
    return makeLockRecord(user, computer, fullName(), clock.longDate(now), clock.timeOfDay(now));
}

} // namespace ryv
