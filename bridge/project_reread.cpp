#include "bridge/project_reread.h"

#include "base/at_end.h"
#include "bridge/command_strings.h"
#include "bridge/lisp_call.h"
#include "bridge/platform.h"

namespace ryv {

bool ProjectReread::run() {
    if (running_)
        return false;
    running_ = true;
    const AtEnd end([this] { running_ = false; });
    return callLisp(HostResultBuffer().addString(u"c:ryv_kqp_reread"));
}

void ProjectReread::queue() {
    if (running_ || queued_ || !platform().host.documents->hasCurrentDocument() || !isQuiescent())
        return;
    queued_ = true;
    queueCommandString(CommandString::rereadProject);
}

} // namespace ryv
