// What goes wrong while rows are built, told on the host's command line: each text once, however many rows it
// concerns, and not before the rows are in order again.
#pragma once

#include "base/strings.h"

#include <unordered_set>

namespace ryv {

class ToldProblems {
public:
    /// Kept for tellAll() during a build; told at once outside of one.
    void add(CString problem);

    void beginBuild() noexcept { ++builds_; }
    /// Whether it was the outermost one.
    bool endBuild() noexcept { return --builds_ == 0; }
    /// Tells what came together in the builds that have ended.
    void tellAll();
    bool isBuilding() const noexcept { return builds_ > 0; }

private:
    CStringArray texts_;
    std::unordered_set<CString> known_;
    int builds_ = 0;
};

} // namespace ryv
