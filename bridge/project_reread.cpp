#include "bridge/project_reread.h"

#include "bridge/command_strings.h"
#include "bridge/lisp_call.h"

namespace ryv {

namespace {

/// Set for as long as the object lives, also when what runs meanwhile throws.
class Flag {
public:
    explicit Flag(bool& flag) noexcept : flag_(flag) { flag_ = true; }
    Flag(const Flag&) = delete;
    Flag& operator=(const Flag&) = delete;
    ~Flag() { flag_ = false; }

private:
    bool& flag_;
};

} // namespace

bool ProjectReread::run() {
    if (running_)
        return false;
    const Flag flag(running_);
    return callLisp(HostResultBuffer().addString(u"c:ryv_kqp_reread"));
}

void ProjectReread::queue() {
    if (!running_)
        queueCommandString(CommandString::rereadProject);
}

} // namespace ryv
