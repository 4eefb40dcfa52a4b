// Keeps the host's own databases like the drawings of the projects, a little at a time.
#pragma once

#include "embedded/database/drawing_table.h"
#include "platform/os/clock.h"
#include "platform/os/message_loop.h"

#include <deque>
#include <functional>
#include <optional>
#include <set>

namespace drafta {

/// What the updates work with. All of it outlives them.
struct UpdateParts {
    ryv::Files* files = nullptr;
    ryv::MessageLoop* loop = nullptr;
    ryv::Clock* clock = nullptr;
    std::function<void(ryv::CStringView)> warn; ///< takes a line that begins with a native path
};

/// A request looks at all drawings of a project, reads those whose file is not the one that the database
/// knows, and stores what it finds. Work is done from a timer of the message loop, about 10 ms at a time,
/// which a large drawing may exceed; the newest request comes first. What cannot be read is left as it is.
///
/// A database that cannot be written is complained about once; its requests end. Main thread only.
class DrawingUpdates final : private ryv::MessageReceiver {
public:
    explicit DrawingUpdates(UpdateParts parts);
    DrawingUpdates(const DrawingUpdates&) = delete;
    DrawingUpdates& operator=(const DrawingUpdates&) = delete;
    ~DrawingUpdates();

    /// Called with the ID of a project after values of its drawings were stored, about once a second while
    /// that goes on. It may make requests.
    void setChanged(std::function<void(ryv::CStringView projectId)> changed) {
        changed_ = std::move(changed);
    }

    /// Asks for an update of a project, whose ID is the path of its file. One that waits already comes first
    /// now; one that is at work goes on, and looks at all drawings once more afterwards, unless the request
    /// comes from the notice of its own changes. Where no timer can be had nothing is done.
    void request(ryv::CStringView projectId, const std::string& database);

    bool isAtWork() const noexcept { return !jobs_.empty(); }

    /// Does all the work that is left now.
    void finish();

    /// Complains of a database unless that was done since the last success.
    void tell(const std::string& database, ryv::CStringView problem);

private:
    using Time = std::chrono::milliseconds;

    struct Job {
        Job(ryv::CString id, std::string database) : project(std::move(id)), table(std::move(database)) {}
        ryv::CString project;
        DrawingTable table;
        bool isBegun = false;
        bool isAgainDue = false; // asked for while it was at work
        ryv::CStringArray drawings;
        std::size_t next = 0;
        DrawingStates known;
        std::vector<DrawingRow> rows; // read and not stored
        Time storeAt{0};
        int attempts = 0; // to store while others write
    };
    enum class Step { more, stored, busy, ended };

    std::intptr_t onMessage(std::uint32_t, std::uintptr_t, std::intptr_t) override { return 0; }
    void onTimer(std::uint32_t id) override;

    static void startOver(Job& job);
    void work(std::optional<Time> atMost);
    Step step();
    Step stepOf(Job& job);
    Step begin(Job& job);
    void readNext(Job& job);
    Step store(Job& job);
    Step fail(Job& job, TableResult result, const ryv::CString& problem);

    UpdateParts parts_;
    std::function<void(ryv::CStringView)> changed_;
    ryv::WindowHandle window_;
    std::deque<Job> jobs_; // the first one is at work
    ryv::CString telling_; // the project whose changes are being told of
    DrawingStates unreadable_;
    std::set<std::string> remade_;  // databases that were damaged and made anew
    std::vector<std::string> told_; // databases that were complained about
};

} // namespace drafta
