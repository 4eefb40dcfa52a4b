// Open projects, and what the project tree needs beside them.
#pragma once

#include "base/text.h"
#include "bench/support/manager_bench.h"
#include "embedded/registry/file_registry.h"
#include "resources/message_numbers.h"
#include "ui/tree/project_tree.h"

#include <benchmark/benchmark.h>

#include <memory>
#include <vector>

namespace bench {

using ryv::CString;

inline std::size_t sizeOf(const benchmark::State& state) {
    return static_cast<std::size_t>(state.range(0));
}

inline constexpr std::size_t manyProjects = 30;

/// Lets everything be worked on; lock_bench measures what a lock costs.
class EverythingLocks final : public ryv::LockCheck {
public:
    bool LispCheckFileLockStatusAndLock(const ryv::CStringList&, int, int, ryv::CStringList&) override {
        return true;
    }
    void LispUpdUnlockFiles(const ryv::CStringList&) override {}
};

class Profile final : public ryv::NullHostProfile {
public:
    CString profileKey() override { return u"Profile"; }
};

class ProjectTree final : public ryv::CProjectTree {
public:
    using CProjectTree::searchText;
};

/// A manager, and settings that have drawings called by file name and first description line.
class OpenProjects : public ManagerBench {
public:
    OpenProjects() {
        ryv::Platform& ports = ryv::platform();
        ports.os.registry = &registry_;
        ports.host.profile = &profile_;
        ports.services.lockCheck = &locks_;
        display({ryv::message::fieldFileName, ryv::message::fieldDescription1});
    }
    OpenProjects(std::size_t count, std::size_t drawings) : OpenProjects() {
        const std::string text = projectText(drawings);
        for (std::size_t n = 0; n < count; ++n)
            open(ids.emplace_back(put("p" + std::to_string(n) + ".kqp", text)));
    }
    void display(const ryv::CArray<int>& order) {
        require(manager().setDwgDisplaySetting(order, u"-", true), "the display setting is not written");
    }

    std::vector<CString> ids;

private:
    drafta::FileRegistry registry_{*ryv::platform().os.files, put("marker", "") + u".hive"};
    Profile profile_;
    EverythingLocks locks_;
};

/// The rows of all projects, in a tree that hears of changes.
inline std::unique_ptr<ProjectTree> buildTree() {
    auto tree = std::make_unique<ProjectTree>();
    tree->HookProjectEvents();
    return tree;
}

inline std::size_t countRows(const ryv::TreeControl& tree) {
    std::size_t rows = 0;
    for (const ryv::TreeItem* at = tree.child(nullptr, 0); at; at = nextInTree(*at, nullptr))
        ++rows;
    return rows;
}

/// A project with one description line that differs; the line is in its label.
inline std::string withOneChange(std::string text, int turn) {
    const std::size_t line = text.find("===motor feeder ", text.size() / 2);
    return text.replace(line, 8, "===turn" + std::to_string(turn % 10));
}

/// What a user types into the filter, a key more each: at first nearly all drawings match, then few.
inline const std::vector<CString>& filterKeys() {
    static const std::vector<CString> keys = {
        u"p", u"pu", u"pum", u"pump", u"pump 0", u"pump 01", u"pump 013", u""};
    return keys;
}

} // namespace bench
