#include "ui/tree/told_problems.h"

#include "bridge/platform.h"

#include <utility>

namespace ryv {

namespace {

void tell(const CString& problem) {
    platform().host.console->print(u"\n" + problem + u"\n");
}

} // namespace

void ToldProblems::add(CString problem) {
    if (!isBuilding())
        tell(problem);
    else if (known_.insert(problem).second)
        texts_.push_back(std::move(problem));
}

void ToldProblems::tellAll() {
    known_.clear();
    for (const CString& problem : std::exchange(texts_, {}))
        tell(problem);
}

} // namespace ryv
