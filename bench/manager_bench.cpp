// The project manager: opening projects one after the other, telling subscribers, adding drawings, following
// a project that is written outside, and watching many projects. Each beside its yardstick, in turn with it.

#include "bench/support/manager_bench.h"
#include "base/encoding.h"
#include "base/text.h"
#include "bench/support/processor_time.h"
#include "model/kqp_filer.h"

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <chrono>
#include <functional>

namespace {

using Bench = bench::ManagerBench;
using bench::require;
using ryv::CString;
using std::chrono::milliseconds;
using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;

template <class Work>
double secondsOf(const Work& work) {
    const auto start = Clock::now();
    work();
    return Seconds(Clock::now() - start).count();
}

// Opening ------------------------------------------------------------------------------------------------

constexpr std::size_t drawings = 10'000;
constexpr int openBefore = 29;

/// 30 projects of their own, over one folder of drawings.
std::vector<CString> putProjects(Bench& bench) {
    const std::string text = bench::projectText(drawings);
    std::vector<CString> projects;
    for (int i = 0; i <= openBefore; ++i)
        projects.push_back(bench.put("p" + std::to_string(i) + ".kqp", text));
    return projects;
}

void putDrawings(Bench& bench) {
    const std::filesystem::path marker = bench.workbench.put("marker", "");
    std::filesystem::create_directory(marker.parent_path() / "sheets");
    for (std::size_t n = 0; n < drawings; ++n) {
        const CString path = bench::drawingPath(n);
        bench.put("sheets/" + ryv::toUtf8(path.substr(path.rfind(u'\\') + 1)), "");
    }
}

struct Opening {
    double read = 0;
    double open = 0;
};

/// Reads a project and lets it go, the yardstick, then opens it; both into memory that is new to the process,
/// as in one that keeps what it opens, and with the file in the processor's cache.
void measure(Bench& bench, const CString& project, Opening& times) {
    const auto read = [&] {
        ryv::RyvPrmProjectData data;
        bench::readProject(project, data);
    };
    read();
    malloc_trim(0);
    times.read += secondsOf(read);
    malloc_trim(0);
    times.open += secondsOf([&] { bench.open(project); });
    bench.manager().closeProject(project, true);
}

/// The argument: whether every drawing is looked for.
void openFirstAndThirtieth(benchmark::State& state) {
    Bench bench;
    bench.database.skipsPathCheck = state.range(0) == 0;
    const std::vector<CString> projects = putProjects(bench);
    if (state.range(0) != 0)
        putDrawings(bench);
    Opening first, thirtieth;
    for (auto _ : state) {
        const double before = thirtieth.open;
        measure(bench, projects[0], first);
        for (int i = 0; i < openBefore; ++i)
            bench.open(projects[static_cast<std::size_t>(i)]);
        measure(bench, projects.back(), thirtieth);
        for (int i = 0; i < openBefore; ++i)
            bench.manager().closeProject(projects[static_cast<std::size_t>(i)], true);
        state.SetIterationTime(thirtieth.open - before);
    }
    const double each = 1e3 / static_cast<double>(state.iterations());
    state.counters["yardstick: read, ms"] = first.read * each;
    state.counters["1st, ms"] = first.open * each;
    state.counters["yardstick with 29 open, ms"] = thirtieth.read * each;
    state.counters["30th, ms"] = thirtieth.open * each;
    state.counters["30th/1st"] = thirtieth.open / first.open;
    state.counters["1st/read"] = first.open / first.read;
}

// Telling ------------------------------------------------------------------------------------------------

struct Subscriber {
    std::size_t heard = 0;
    void hear(const CString& project) { heard += project.size(); }
};

void tellSubscribers(benchmark::State& state) {
    const auto count = static_cast<std::size_t>(state.range(0));
    ryv::ProjectEvents events;
    std::vector<Subscriber> subscribers(count);
    std::vector<std::function<void(const CString&)>> functions;
    for (Subscriber& each : subscribers) {
        events.onProjectOpen.subscribe(each, &Subscriber::hear);
        functions.emplace_back([&each](const CString& project) { each.hear(project); });
    }
    const CString project = u"\\bench\\p.kqp";
    constexpr int times = 100;
    double plain = 0, fired = 0;
    for (auto _ : state) {
        plain += secondsOf([&] {
            for (int i = 0; i < times; ++i)
                for (const auto& function : functions)
                    function(project);
        });
        const double time = secondsOf([&] {
            for (int i = 0; i < times; ++i)
                events.onProjectOpen(project);
        });
        fired += time;
        state.SetIterationTime(time / times);
    }
    benchmark::DoNotOptimize(subscribers);
    const double calls = static_cast<double>(state.iterations()) * times * static_cast<double>(count) / 1e9;
    state.counters["yardstick: functions, ns each"] = plain / calls;
    state.counters["event, ns each"] = fired / calls;
    state.counters["ratio"] = fired / plain;
}

// Adding -------------------------------------------------------------------------------------------------

ryv::CArray<ryv::RyvPrmFileDetails> newDrawings(const CString& project, std::size_t count) {
    const CString folder = project.substr(0, project.rfind(u'\\') + 1);
    ryv::CArray<ryv::RyvPrmFileDetails> added;
    for (std::size_t n = 0; n < count; ++n)
        added.emplace_back(folder + ryv::fromAscii("added\\drawing " + std::to_string(n) + ".dwg"));
    return added;
}

/// A tenth of the drawings is added; the yardstick writes what comes of it.
void addDrawings(benchmark::State& state) {
    const auto size = static_cast<std::size_t>(state.range(0));
    Bench bench;
    const std::string text = bench::projectText(size);
    double write = 0, add = 0;
    for (auto _ : state) {
        const CString project = bench.put("p.kqp", text);
        bench.open(project);
        const ryv::CArray<ryv::RyvPrmFileDetails> drawingsToAdd = newDrawings(project, size / 10);
        std::vector<bool> added;
        const double time = secondsOf([&] {
            require(bench.manager().addFilesToProject(drawingsToAdd, added, project), "drawings not added");
        });
        ryv::RyvPrmKQPFiler filer(project, true, true);
        write += secondsOf([&] {
            require(filer.writeProject(bench.manager().getProject(project)->getProjectData()), "not written");
        });
        bench.manager().closeProject(project, true);
        add += time;
        state.SetIterationTime(time);
    }
    const double each = 1e9 / static_cast<double>(size) / static_cast<double>(state.iterations());
    state.counters["yardstick: write, ns/drawing"] = write * each;
    state.counters["add, ns/drawing"] = add * each;
    state.counters["ratio"] = add / write;
}

// Following ----------------------------------------------------------------------------------------------

struct Reader {
    int reRead = 0;
    void onReRead(const CString&) { ++reRead; }
};

/// Less the quiet period, from a write by plain means to the event.
void followOutsideWrite(benchmark::State& state) {
    Bench bench;
    const std::string text = bench::projectText(drawings);
    const CString project = bench.put("p.kqp", text);
    bench.open(project);
    Reader reader;
    bench.manager().onProjectReRead.subscribe(reader, &Reader::onReRead);
    double read = 0, followed = 0;
    int change = 0;
    for (auto _ : state) {
        read += secondsOf([&] {
            ryv::RyvPrmProjectData data;
            bench::readProject(project, data);
        });
        bench.put("p.kqp", "*[2]" + std::to_string(++change) + "\n" + text);
        const double time = secondsOf([&] {
            while (reader.reRead < change)
                bench.loop.wait(milliseconds(1000));
        }) - Seconds(ryv::quietPeriod).count();
        followed += time;
        state.SetIterationTime(time);
    }
    bench.manager().onProjectReRead.unsubscribe(reader, &Reader::onReRead);
    const auto count = static_cast<double>(state.iterations());
    state.counters["yardstick: read, ms"] = read / count * 1e3;
    state.counters["followed, ms"] = followed / count * 1e3;
    state.counters["ratio"] = followed / read;
}

// Watching -----------------------------------------------------------------------------------------------

void runLoop(Bench& bench, milliseconds time) {
    for (const auto end = Clock::now() + time; Clock::now() < end;)
        bench.loop.wait(milliseconds(100));
}

void watchOpenProjects(benchmark::State& state) {
    Bench bench;
    for (std::int64_t i = 0; i < state.range(0); ++i)
        bench.open(bench.put("p" + std::to_string(i) + ".kqp", "one.dwg\n"));
    runLoop(bench, milliseconds(500)); // hears of the files just made
    for (auto _ : state) {
        const double before = bench::processorSeconds();
        const double time = secondsOf([&] { runLoop(bench, milliseconds(3000)); });
        state.SetIterationTime(time);
        state.counters["share of a core, %"] = 100 * (bench::processorSeconds() - before) / time;
    }
}

BENCHMARK(openFirstAndThirtieth)
    ->Arg(0)
    ->Arg(1)
    ->Iterations(10)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime();
BENCHMARK(tellSubscribers)
    ->Arg(100)
    ->Arg(1000)
    ->Iterations(1000)
    ->Unit(benchmark::kMicrosecond)
    ->UseManualTime();
BENCHMARK(addDrawings)->Arg(1000)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond)->UseManualTime();
BENCHMARK(followOutsideWrite)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(20);
BENCHMARK(watchOpenProjects)->Arg(500)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(1);

} // namespace

BENCHMARK_MAIN();
