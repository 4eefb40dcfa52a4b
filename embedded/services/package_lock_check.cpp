#include "embedded/services/package_lock_check.h"

namespace drafta {

namespace {

ryv::CStringArray arrayOf(const ryv::CStringList& files) {
    return {files.begin(), files.end()};
}

void addNumber(ryv::HostResultBuffer& call, int number) {
    const auto small = static_cast<std::int16_t>(number);
    if (small == number)
        call.addInteger(small);
    else
        call.addLongInteger(number);
}

} // namespace

bool PackageLockCheck::LispCheckFileLockStatusAndLock(
    const ryv::CStringList& files, int firstFlag, int secondFlag, ryv::CStringList& locked) {
    auto call = ryv::HostResultBuffer().addString(u"kqupda_check_and_lock").addStrings(arrayOf(files));
    addNumber(call, firstFlag);
    addNumber(call, secondFlag);
    ryv::HostResultBuffer answer;
    if (lisp_.invoke(call, answer) != ryv::LispStatus::success || answer.empty() ||
        answer.at(0).type != ryv::ResultType::truth)
        return false;
    for (std::size_t i = 1; i < answer.size(); ++i)
        if (const ryv::CString* const file = answer.stringAt(i))
            locked.push_back(*file);
    return true;
}

void PackageLockCheck::LispUpdUnlockFiles(const ryv::CStringList& files) {
    const auto call = ryv::HostResultBuffer().addString(u"kqupda_unlock").addStrings(arrayOf(files));
    ryv::HostResultBuffer answer;
    // Without a document there is no LISP: the locks end with the process then.
    if (!files.empty())
        lisp_.invoke(call, answer);
}

} // namespace drafta
