#include "manager/reread_timers.h"

#include "base/fold.h"
#include "bridge/platform.h"

#include <algorithm>

namespace ryv {

bool RereadTimers::start(CStringView projectId, WindowHandle window) {
    MessageLoop& messages = *platform().os.messages;
    if (!messages.isWindow(window))
        return true;
    const auto waiting = std::find_if(timers_.begin(), timers_.end(),
        [projectId](const _filetimer& each) { return equalNoCase(each.projectId, projectId); });
    if (waiting != timers_.end()) {
        messages.setTimer(window, waiting->timerId, quietPeriod);
        return true;
    }
    if (++lastId_ == timerOfPalette)
        ++lastId_;
    if (messages.setTimer(window, lastId_, quietPeriod))
        timers_.push_back({CString(projectId), lastId_});
    return true;
}

CString RereadTimers::fired(WindowHandle window, std::uint32_t timerId) {
    platform().os.messages->killTimer(window, timerId);
    const auto waiting = std::find_if(timers_.begin(), timers_.end(),
        [timerId](const _filetimer& each) { return each.timerId == timerId; });
    if (waiting == timers_.end())
        return {};
    CString project = std::move(waiting->projectId);
    timers_.erase(waiting);
    return project;
}

} // namespace ryv
