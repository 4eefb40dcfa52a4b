// A project manager over files in memory.
#pragma once

#include "base/encoding.h"
#include "manager/nav_state.h"
#include "manager/project_manager.h"
#include "manager/reread_window.h"
#include "tests/support/memory_files.h"
#include "tests/support/scripted_platform.h"

#include <gtest/gtest.h>

#include <string_view>

namespace ryv::test {

class MemoryManager : public ::testing::Test {
protected:
    MemoryManager() {
        setNavState(&state);
        state.createProjectManager();
        manager = state.projectManager();
    }
    ~MemoryManager() override { state.destroyProjectManager(); }

    static CString path(std::string_view name) { return u"C:\\P\\" + decodeUtf8(name); }

    MemoryFiles files;
    ScriptedPlatform surroundings{&files};
    NavState state;
    RereadWindow window{state};
    RyvPrmProjectManager* manager = nullptr;
};

} // namespace ryv::test
