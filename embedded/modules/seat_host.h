// What the seats of modules need of the host beyond its ports, which take things back whole groups at a time.
#pragma once

#include "base/strings.h"

#include <set>

namespace drafta {

class SeatHost {
public:
    virtual ~SeatHost() = default;

    /// A code for a LISP function that has never been given.
    virtual int newCode() = 0;
    /// Forgets the handlers of the codes, and sets the names to nil wherever one of the codes is their
    /// function.
    virtual void dropFunctions(const std::set<int>& codes, const std::set<ryv::CString>& names) = 0;

    /// Removes one command; nothing happens when the group has none of that name.
    virtual void dropCommand(ryv::CStringView group, ryv::CStringView globalName) = 0;
};

} // namespace drafta
