#include "programs/kqp/watch/reread_failures.h"

#include "bridge/platform.h"
#include "programs/kqp/project_input.h"

#include <utility>

namespace kqp {

bool saysWhyUnreadable(const std::string& file, Console& console) {
    ryv::RyvPrmKQPFiler filer(true);
    ryv::RyvPrmProjectData ignored;
    return !readProject(file, filer, ignored, console);
}

RereadFailures::RereadFailures(ryv::RyvPrmProjectManager& manager, const std::string& file, Console& console)
    : manager_(manager), file_(file), console_(console) {
    manager_.onPreProjectReRead.subscribe(*this, &RereadFailures::begun);
    manager_.onProjectReRead.subscribe(*this, &RereadFailures::succeeded);
}

RereadFailures::~RereadFailures() {
    manager_.__RemoveAllEventHandlers(this);
}

/// The re-read is over before the loop gets to the call.
void RereadFailures::begun(const ryv::CString&) {
    underWay_ = true;
    ryv::platform().os.messages->call([this] { look(); });
}

void RereadFailures::succeeded(const ryv::CString&) {
    underWay_ = false;
}

void RereadFailures::look() {
    if (std::exchange(underWay_, false))
        saysWhyUnreadable(file_, console_);
}

} // namespace kqp
