#include "programs/kqp/watch/watch.h"

#include "manager/nav_state.h"
#include "manager/project_manager.h"
#include "manager/reread_window.h"
#include "manager/subsystem_notifier.h"
#include "programs/kqp/project_input.h"
#include "programs/kqp/watch/output_reader.h"
#include "programs/kqp/watch/reread_failures.h"
#include "programs/kqp/watch/stop_signals.h"
#include "programs/kqp/watch/watch_ports.h"

#include <optional>
#include <string_view>

namespace kqp {

namespace {

/// The project manager at work, without a palette.
class OpenManager {
public:
    OpenManager() {
        ryv::setNavState(&state_);
        state_.createProjectManager();
        window_.emplace(state_);
    }
    OpenManager(const OpenManager&) = delete;
    OpenManager& operator=(const OpenManager&) = delete;

    ryv::RyvPrmProjectManager& operator*() const { return *state_.projectManager(); }
    ryv::RyvPrmProjectManager* operator->() const { return state_.projectManager(); }

private:
    ryv::NavState state_;
    std::optional<ryv::RereadWindow> window_;
};

int cannotWatch(const std::string& file, Console& console, std::string_view why) {
    complain(console, file + ": cannot be watched: " + std::string(why));
    return failed;
}

/// The manager does not say why it could not open a file; reading it once more does.
int cannotOpen(const std::string& file, Console& console) {
    if (saysWhyUnreadable(file, console))
        return failed;
    return cannotWatch(file, console, "it changes just now");
}

} // namespace

int watch(const std::string& file, EventForm form, Console& console) {
    drafta::EpollMessageLoop loop;
    if (!loop.isUsable())
        return cannotWatch(file, console, "no descriptors are left");
    const StopSignals signals(loop);
    EventLines lines(form, console, loop);
    const WatchPorts ports(loop, lines);
    const OpenManager manager;
    const ryv::RyvPrmSubsystemNotifier notifier(*manager);
    const RereadFailures failures(*manager, file, console);
    if (!manager->openProject(pathFromNative(file), false))
        return cannotOpen(file, console);
    const OutputReader reader(loop, console.out);
    loop.run();
    return finishOutput(console, done);
}

} // namespace kqp
