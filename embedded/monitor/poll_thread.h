// Looking again and again at files of which no event tells: the one thread of the file monitor.
#pragma once

#include "embedded/monitor/file_mark.h"

#include <chrono>
#include <functional>
#include <memory>
#include <vector>

namespace drafta {

/// The thread looks at its files once a period, each time compared with how it last saw them, and reports the
/// numbers of those that changed. It touches nothing but its list and the file system.
class PollThread {
public:
    struct Item {
        std::string file;   ///< native paths
        std::string folder; ///< of the file: tells of names that come in another spelling
        FileMark fileMark;  ///< as the owner saw them last
        FileMark folderMark;

        bool operator==(const Item&) const = default;
    };

    /// `report` is called on the thread, never after the destructor has begun, and must not call back.
    using Report = std::function<void(const std::vector<std::uint64_t>& changed)>;

    PollThread(std::chrono::milliseconds period, Report report);
    PollThread(const PollThread&) = delete;
    PollThread& operator=(const PollThread&) = delete;

    /// Does not wait for the thread, which a server that does not answer may keep for minutes: it ends by
    /// itself when it is free.
    ~PollThread();

    /// Adds a file under a number, or takes in how its owner sees it now. False when the system gives no
    /// thread; the next call tries again.
    bool set(std::uint64_t number, Item item);
    void remove(std::uint64_t number);

private:
    struct Shared;
    bool startThread();

    std::shared_ptr<Shared> shared_;
    bool started_ = false;
};

} // namespace drafta
