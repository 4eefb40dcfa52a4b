// What the benchmarks of the project tree have in common.
#pragma once

#include "bench/support/open_projects.h"
#include "bench/support/processor_time.h"

namespace bench {

using ryv::TreeItem;

/// Of the turns so far; the time of each is the least.
inline void report(benchmark::State& state, const Least& yardstick, const Least& measured) {
    state.SetIterationTime(measured.seconds());
    state.counters["yardstick, ms"] = yardstick.milliseconds();
    state.counters["measured, ms"] = measured.milliseconds();
    state.counters["ratio"] = measured.seconds() / yardstick.seconds();
}

/// What the yardsticks read a project with.
inline void readPlain(const CString& project) {
    ryv::RyvPrmProjectData data;
    readProject(project, data);
    benchmark::DoNotOptimize(&data);
}

/// In so many turns, by the time that is reported.
inline void measureTurns(benchmark::internal::Benchmark* benchmark, int turns) {
    benchmark->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(turns);
}

} // namespace bench
