// A project manager with real files, a real loop and a real monitor, without a host.
#pragma once

#include "bench/support/bench_project.h"
#include "bridge/platform.h"
#include "embedded/loop/epoll_message_loop.h"
#include "embedded/monitor/inotify_monitor.h"
#include "manager/nav_state.h"
#include "manager/project_manager.h"
#include "manager/reread_window.h"

#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>

namespace bench {

/// A benchmark whose work failed measures nothing.
inline void require(bool condition, const char* what) {
    if (!condition) {
        std::fprintf(stderr, "%s\n", what);
        std::exit(2);
    }
}

/// Asks nobody about drawings that are missing, or looks at every one of them.
class NoDatabase : public ryv::NullProjectDatabase {
public:
    bool skipsPathCheck = true;
    bool PmIsHelperProcess() override { return skipsPathCheck; }
};

class ManagerBench {
public:
    ManagerBench() {
        ryv::Platform& ports = ryv::platform();
        ports.os.messages = &loop;
        ports.os.monitor = &monitor;
        ports.services.projectDatabase = &database;
        ryv::setNavState(&state);
        state.createProjectManager();
        window.emplace(state);
    }
    ManagerBench(const ManagerBench&) = delete;
    ManagerBench& operator=(const ManagerBench&) = delete;
    ~ManagerBench() {
        state.destroyProjectManager();
        window.reset();
    }
    ryv::RyvPrmProjectManager& manager() { return *state.projectManager(); }
    ryv::CString put(const std::string& name, const std::string& content) {
        return workbench.modulePath(workbench.put(name, content));
    }
    void open(const ryv::CString& project) {
        require(manager().openProject(project, false), "a project does not open");
    }

    Workbench workbench;
    drafta::PathMapper mapper;
    drafta::EpollMessageLoop loop;
    drafta::InotifyMonitor monitor{loop, *ryv::platform().os.files, mapper};
    NoDatabase database;
    ryv::NavState state;
    std::optional<ryv::RereadWindow> window;
};

} // namespace bench
