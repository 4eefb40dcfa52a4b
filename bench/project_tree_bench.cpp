// Look-ups and whole-tree operations, beside the standard hash map with the same keys.

#include "base/text.h"
#include "bench/support/bench_project.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <memory>
#include <random>
#include <unordered_map>

namespace {

/// Every drawing of a project of that size, or every so many-th.
void fill(ryv::RyvPrmProjectData& data, std::size_t drawings, std::size_t every = 1) {
    for (std::size_t n = 0; n < drawings; n += every) {
        const ryv::CString trace = bench::drawingTrace(n);
        data.addFile(std::make_unique<ryv::RyvPrmFileDetails>(bench::drawingPath(n)), &trace);
    }
}

/// The keys in an order that has nothing to do with how they lie in memory.
ryv::CStringArray shuffled(std::int64_t count, ryv::CString (*key)(std::size_t)) {
    ryv::CStringArray keys;
    for (std::int64_t n = 0; n < count; ++n)
        keys.push_back(key(static_cast<std::size_t>(n)));
    std::shuffle(keys.begin(), keys.end(), std::mt19937_64(7)); // NOLINT(bugprone-random-generator-seed)
    return keys;
}

template <class Find>
void lookUpAll(benchmark::State& state, const ryv::CStringArray& keys, const Find& find) {
    for (auto _ : state)
        for (const ryv::CString& key : keys)
            if (!find(key))
                state.SkipWithError("a key was not found");
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(keys.size()));
    state.counters["ns/item"] = benchmark::Counter(static_cast<double>(keys.size()) / 1e9,
        benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void yardstickMapByPath(benchmark::State& state) {
    const auto keys = shuffled(state.range(0), bench::drawingPath);
    std::unordered_map<ryv::CString, std::unique_ptr<ryv::RyvPrmFileDetails>> map;
    for (std::size_t n = 0; n < keys.size(); ++n)
        map.emplace(bench::drawingPath(n), std::make_unique<ryv::RyvPrmFileDetails>(bench::drawingPath(n)));
    lookUpAll(state, keys, [&map](const ryv::CString& key) { return map.find(key)->second.get(); });
}

void findByPath(benchmark::State& state) {
    ryv::RyvPrmProjectData data;
    fill(data, static_cast<std::size_t>(state.range(0)));
    lookUpAll(state, shuffled(state.range(0), bench::drawingPath),
        [&data](const ryv::CString& key) { return data.findFile(key); });
}

ryv::CString traceOfSubfolder(std::size_t n) {
    return bench::drawingTrace(n * 10);
}

void yardstickMapByTrace(benchmark::State& state) {
    const auto keys = shuffled(state.range(0), traceOfSubfolder);
    std::unordered_map<ryv::CString, std::unique_ptr<ryv::RyvPrmSubfolder>> map;
    for (std::size_t n = 0; n < keys.size(); ++n)
        map.emplace(traceOfSubfolder(n), std::make_unique<ryv::RyvPrmSubfolder>(u"CABINET"));
    lookUpAll(state, keys, [&map](const ryv::CString& key) { return map.find(key)->second.get(); });
}

void findByTrace(benchmark::State& state) {
    ryv::RyvPrmProjectData data;
    fill(data, static_cast<std::size_t>(state.range(0)) * 10, 10);
    lookUpAll(state, shuffled(state.range(0), traceOfSubfolder),
        [&data](const ryv::CString& key) { return data.findSubfolder(key); });
}

void countPerDrawing(benchmark::State& state) {
    state.counters["ns/drawing"] = benchmark::Counter(static_cast<double>(state.range(0)) / 1e9,
        benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void removeHalf(benchmark::State& state) {
    const auto count = static_cast<std::size_t>(state.range(0));
    ryv::CStringArray half;
    for (std::size_t n = 0; n < count; n += 2)
        half.push_back(bench::drawingPath(n));
    for (auto _ : state) {
        state.PauseTiming();
        auto data = std::make_unique<ryv::RyvPrmProjectData>();
        fill(*data, count);
        state.ResumeTiming();
        data->removeFiles(half);
        state.PauseTiming();
        data.reset();
        state.ResumeTiming();
    }
    countPerDrawing(state);
}

void compareEqual(benchmark::State& state) {
    ryv::RyvPrmProjectData a;
    ryv::RyvPrmProjectData b;
    fill(a, static_cast<std::size_t>(state.range(0)));
    fill(b, static_cast<std::size_t>(state.range(0)));
    for (auto _ : state)
        if (!(a == b))
            state.SkipWithError("not equal");
    countPerDrawing(state);
}

void flatList(benchmark::State& state) {
    ryv::RyvPrmProjectData data;
    fill(data, static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) {
        ryv::CArray<ryv::RyvPrmFileDetails*> list;
        data.generateFlatFileDetailsArray(list);
        benchmark::DoNotOptimize(list.data());
    }
    countPerDrawing(state);
}

void sizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMicrosecond)->UseRealTime();
}

BENCHMARK(yardstickMapByPath)->Apply(sizes);
BENCHMARK(findByPath)->Apply(sizes);
BENCHMARK(yardstickMapByTrace)->Apply(sizes);
BENCHMARK(findByTrace)->Apply(sizes);
BENCHMARK(removeHalf)->Apply(sizes);
BENCHMARK(compareEqual)->Apply(sizes);
BENCHMARK(flatList)->Apply(sizes);

} // namespace

BENCHMARK_MAIN();
