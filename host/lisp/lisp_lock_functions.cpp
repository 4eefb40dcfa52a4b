#include "host/lisp/lisp_lock_functions.h"

#include "manager/nav_state.h"
#include "manager/project_manager.h"
#include "resources/message_numbers.h"
#include "resources/messages.h"

namespace ryv::lisp_functions {

namespace {

constexpr std::int16_t locks = 1;

struct Lock {
    _lockStatus status = lockInvalid;
    CString holder;
};

/// Who has the file of the first argument locked; nothing without a path or a manager. The locker asks about
/// any file, so drawings are asked about in the same way.
std::optional<Lock> lockOf(const LispValues& arguments) {
    const CString* const path = arguments.string(0);
    RyvPrmProjectManager* const manager = GetProjectManager();
    if (!path || !manager)
        return std::nullopt;
    Lock lock;
    CString machine; // without a place for each part nothing would be told
    CString since;
    lock.status = manager->whoHasProjectFileLocked(*path, &lock.holder, &machine, &since);
    return lock;
}

LispAnswer statusOf(const std::optional<Lock>& lock) {
    return lock ? LispAnswer::number(lock->status) : LispAnswer::wrong();
}

LispAnswer textOf(int number) {
    return LispAnswer::text(CString(messageText(number)));
}

LispAnswer holderOf(const std::optional<Lock>& lock) {
    if (!lock)
        return LispAnswer::wrong();
    switch (lock->status) {
    case lockNone:
        return LispAnswer::text({});
    case lockMine:
    case lockOther:
        return LispAnswer::text(lock->holder);
    case lockUnreadable:
        return textOf(message::lockUnreadable);
    case lockReadOnly:
    case lockFolderReadOnly:
        return textOf(message::lockReadOnly);
    case lockMissing:
        return textOf(message::lockMissing);
    case lockInvalid:
        break;
    }
    return LispAnswer::nil();
}

} // namespace

/// LISP code compares the result with 1 and 0, so this one gives no nil for a wrong call.
LispAnswer virtualLockProject(const LispValues& arguments) {
    const CString* const path = arguments.string(0);
    const std::int16_t* const mode = arguments.integer(1);
    RyvPrmProjectManager* const manager = GetProjectManager();
    if (!path || !mode || !manager)
        return {0, LispAnswer::wrongCall};
    const bool done = *mode == locks ? manager->lockProjectFile(*path) : manager->unlockProjectFile(*path);
    return LispAnswer::number(done ? 1 : 0);
}

LispAnswer getProjectLockStatus(const LispValues& arguments) {
    return statusOf(lockOf(arguments));
}

LispAnswer getProjectWhoLocked(const LispValues& arguments) {
    return holderOf(lockOf(arguments));
}

LispAnswer getDrawingWhoLocked(const LispValues& arguments) {
    return holderOf(lockOf(arguments));
}

LispAnswer getDrawingLockStatus(const LispValues& arguments) {
    return statusOf(lockOf(arguments));
}

} // namespace ryv::lisp_functions
