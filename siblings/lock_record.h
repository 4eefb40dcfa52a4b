// What a lock file says: who made it, where and when.
#pragma once

#include "base/strings.h"

#include <optional>

namespace ryv {

/// A lock record in its parts.
struct LockRecord {
    CString user;
    CString machine;
    CString time;

    /// The user with the machine in parentheses behind it: what people are shown, and what records are
    /// compared by.
    CString holder() const;
};

/// The content of a lock file: three lines with a line feed between them, and none at the end. The second
/// line is the computer's name, a blank and the user's full name, which may be empty; the third is the date,
/// two blanks and the time of day.
CString makeLockRecord(
    CStringView user, CStringView computer, CStringView fullName, CStringView date, CStringView time);

/// Takes a record apart; nothing when it lacks its second line feed or its machine line is empty. The machine
/// part is the second line without its last character: records of users without a full name end that line in
/// a blank, and everybody who shows or compares holders relies on the shorter form.
std::optional<LockRecord> parseLockRecord(CStringView record);

/// The name of the computer in a record: its second line up to the first blank, which names of computers do
/// not hold. Empty when the record cannot be taken apart. Lives as long as the record.
CStringView computerOf(CStringView record);

/// Whether two records name the same holder, without regard to case. A record that cannot be taken apart has
/// none, and is nobody's.
bool haveSameHolder(CStringView record, CStringView other);

} // namespace ryv
