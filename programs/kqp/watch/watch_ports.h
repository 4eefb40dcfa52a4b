// The ports that only watching needs.
#pragma once

#include "bridge/platform.h"
#include "embedded/loop/epoll_message_loop.h"
#include "embedded/monitor/inotify_monitor.h"

namespace kqp {

/// The name under which the event log is told of troubles with watching files.
inline constexpr ryv::CStringView monitoringNotice = u"fileMonitoring";

/// Adds message loop, file monitor and event log to the installed platform for as long as it lives. The
/// user's folders stay unknown, so nothing is recorded there; and the program counts as the package's helper,
/// which asks no questions.
class WatchPorts {
public:
    /// Both outlive the object.
    WatchPorts(drafta::EpollMessageLoop& loop, ryv::EventLog& log);
    WatchPorts(const WatchPorts&) = delete;
    WatchPorts& operator=(const WatchPorts&) = delete;
    ~WatchPorts();

private:
    class HelperDatabase final : public ryv::NullProjectDatabase {
        bool PmIsHelperProcess() override { return true; }
    };

    const ryv::Platform::Os os_ = ryv::platform().os;
    const ryv::Platform::Services services_ = ryv::platform().services;
    HelperDatabase database_;
    drafta::PathMapper mapper_; // this program maps neither drives nor shares
    drafta::InotifyMonitor monitor_;
};

} // namespace kqp
