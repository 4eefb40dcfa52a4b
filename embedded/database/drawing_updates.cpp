#include "embedded/database/drawing_updates.h"

#include "base/fold.h"
#include "base/paths.h"
#include "embedded/database/database_file.h"
#include "embedded/database/project_drawings.h"

#include <algorithm>

namespace drafta {

namespace {

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds slice = 10ms;
constexpr std::chrono::milliseconds pause = 20ms; // from one slice to the next: the user comes first
constexpr std::chrono::milliseconds storeEvery = 1s;
constexpr std::size_t mostRows = 2000; // that wait to be stored
constexpr int mostAttempts = 200;      // a few seconds
constexpr std::uint32_t timer = 1;

bool isUpToDate(const DrawingStates& states, const ryv::CString& key, const DrawingState& state) {
    const auto hit = states.find(key);
    return hit != states.end() && hit->second == state;
}

} // namespace

DrawingUpdates::DrawingUpdates(UpdateParts parts)
    : parts_(std::move(parts)), window_(parts_.loop->createWindow(*this)) {}

DrawingUpdates::~DrawingUpdates() {
    parts_.loop->destroyWindow(window_);
}

void DrawingUpdates::request(ryv::CStringView projectId, const std::string& database) {
    const auto same = std::find_if(jobs_.begin(), jobs_.end(),
        [projectId](const Job& job) { return ryv::equalNoCase(job.project, projectId); });
    if (jobs_.empty() && !parts_.loop->setTimer(window_, timer, pause))
        return;
    Job job = same == jobs_.end() ? Job(ryv::CString(projectId), database) : std::move(*same);
    if (same != jobs_.end())
        jobs_.erase(same);
    if (job.table.native() != database) { // what was read from drawings is kept
        job.table = DrawingTable(database);
        startOver(job);
    } else if (job.isBegun && !ryv::equalNoCase(telling_, projectId)) {
        job.isAgainDue = true; // what was looked at before may have changed since
    }
    jobs_.push_front(std::move(job));
}

void DrawingUpdates::startOver(Job& job) {
    job.isBegun = job.isAgainDue = false;
    job.next = 0;
    job.known.clear();
}

void DrawingUpdates::onTimer(std::uint32_t) {
    work(slice);
}

void DrawingUpdates::finish() {
    work(std::nullopt);
}

void DrawingUpdates::work(std::optional<Time> atMost) {
    const Time start = parts_.clock->steady();
    while (!jobs_.empty() && (!atMost || parts_.clock->steady() - start < *atMost))
        if (step() == Step::busy && atMost)
            return; // the next slice tries again
    if (jobs_.empty())
        parts_.loop->killTimer(window_, timer);
}

/// Whoever is told may ask for more, so nothing is held on to when that happens.
DrawingUpdates::Step DrawingUpdates::step() {
    const ryv::CString project = jobs_.front().project;
    const Step result = stepOf(jobs_.front());
    if (result == Step::ended)
        jobs_.pop_front();
    if (result == Step::stored && changed_) {
        telling_ = project;
        changed_(project);
        telling_.clear();
    }
    return result;
}

DrawingUpdates::Step DrawingUpdates::stepOf(Job& job) {
    if (!job.isBegun)
        return begin(job);
    const bool isLast = job.next == job.drawings.size();
    if (!job.rows.empty() && (isLast || job.rows.size() >= mostRows || parts_.clock->steady() >= job.storeAt))
        return store(job);
    if (isLast && !job.isAgainDue)
        return Step::ended;
    if (isLast)
        startOver(job);
    else
        readNext(job);
    return Step::more;
}

DrawingUpdates::Step DrawingUpdates::begin(Job& job) {
    ryv::CString problem;
    if (const TableResult read = job.table.readStates(job.known, problem); read != TableResult::good)
        return fail(job, read, problem);
    for (const DrawingRow& row : job.rows)
        job.known[row.drawing] = row.state;
    job.drawings.clear();
    if (!readProjectDrawings(*parts_.files, job.project, job.drawings))
        return Step::ended; // whoever opens the project says so
    job.isBegun = true;
    job.storeAt = parts_.clock->steady() + storeEvery;
    return Step::more;
}

void DrawingUpdates::readNext(Job& job) {
    const ryv::CString& drawing = job.drawings[job.next++];
    ryv::FileInformation file;
    if (ryv::paths::isRelative(drawing) || !parts_.files->information(drawing, file).ok() || !file.isRegular)
        return;
    const ryv::CString key = databaseKey(drawing);
    const DrawingState state{file.modifiedNanoseconds, static_cast<std::int64_t>(file.size)};
    if (isUpToDate(job.known, key, state) || isUpToDate(unreadable_, key, state))
        return;
    DrawingRow row;
    if (!readDrawingRow(*parts_.files, drawing, row)) {
        unreadable_[key] = state;
        return;
    }
    job.known[key] = row.state;
    job.rows.push_back(std::move(row));
}

DrawingUpdates::Step DrawingUpdates::store(Job& job) {
    ryv::CString problem;
    if (const TableResult stored = job.table.store(job.rows, problem); stored != TableResult::good)
        return fail(job, stored, problem);
    std::erase(told_, job.table.native());
    job.rows.clear();
    job.attempts = 0;
    job.storeAt = parts_.clock->steady() + storeEvery;
    return Step::stored;
}

/// All that a damaged database held is in the drawings: the job begins again with a new one, once.
DrawingUpdates::Step DrawingUpdates::fail(Job& job, TableResult result, const ryv::CString& problem) {
    if (result == TableResult::busy && ++job.attempts < mostAttempts)
        return Step::busy;
    ryv::CString ignored;
    if (result == TableResult::damaged && remade_.insert(job.table.native()).second &&
        job.table.remake(ignored) == TableResult::good) {
        startOver(job);
        return Step::more;
    }
    tell(job.table.native(), problem);
    return Step::ended;
}

void DrawingUpdates::tell(const std::string& database, ryv::CStringView problem) {
    if (std::find(told_.begin(), told_.end(), database) != told_.end())
        return;
    told_.push_back(database);
    parts_.warn(databaseProblem(database, problem));
}

} // namespace drafta
