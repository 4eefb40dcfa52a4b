// A project manager over this machine's files, message loop and file monitor. What needs a host answers as if
// no document were open, and the last-project list is not kept.
#pragma once

#include "embedded/monitor/inotify_monitor.h"
#include "embedded/os/posix_platform.h"
#include "tests/manager/manager_fixture.h"
#include "tests/support/fault_files.h"
#include "tests/support/run_until.h"
#include "tests/support/temp_folder.h"

#include <string_view>

namespace ryv::test {

/// RYV_RELIABILITY=full in the environment asks for as much as is to hold for a release.
inline bool wantsFullReliability() {
    const char* const size = std::getenv("RYV_RELIABILITY");
    return size && std::string_view(size) == "full";
}

/// The project "a.kqp" in a folder of its own.
class RealManager : public ::testing::Test {
protected:
    using SteadyClock = std::chrono::steady_clock;

    RealManager() {
        host.userFolders.settingsFolder.clear();
        host.projectDatabase.helperProcess = true; // which never asks about missing drawings
        host.ports.os.messages = &loop;
        host.ports.os.monitor = &monitor;
        setNavState(&state);
        state.createProjectManager();
        manager = state.projectManager();
        window.emplace(state);
        recorder.emplace(*manager);
    }
    ~RealManager() override {
        recorder.reset();
        state.destroyProjectManager();
        window.reset();
    }

    RyvPrmProject& project() { return *manager->getProject(id); }

    /// Lets the loop run until the condition holds; false when it does not within 20 seconds.
    template <class Condition>
    bool waitFor(Condition condition) {
        return runUntil(loop, condition);
    }
    void runFor(std::chrono::milliseconds time) {
        for (const auto end = SteadyClock::now() + time; SteadyClock::now() < end;)
            loop.wait(std::chrono::milliseconds(20));
    }

    TempFolder folder;
    CString id = folder.module(u"a.kqp");
    drafta::PosixPlatform os;
    drafta::EpollMessageLoop loop;
    drafta::InotifyMonitor monitor{loop, *os.platform().os.files, os.mapper()};
    FaultFiles files{*os.platform().os.files};
    ScriptedPlatform host{&files};
    NavState state;
    RyvPrmProjectManager* manager = nullptr;
    std::optional<RereadWindow> window;
    std::optional<EventRecorder> recorder;
};

} // namespace ryv::test
