// Entering the interpreter from outside.
#pragma once

#include "embedded/lisp/machine.h"

namespace drafta::lisp {

/// Lives while a public operation runs code. The outermost one finds out how much of the thread's stack may
/// be used, sees to some free memory, and starts counting steps.
class Entry {
public:
    explicit Entry(Machine& machine);
    Entry(const Entry&) = delete;
    Entry& operator=(const Entry&) = delete;
    ~Entry();

private:
    Machine* machine_;
};

} // namespace drafta::lisp
