// Reading and writing project files, beside what the same bytes cost at least and what a good XML parser
// makes of the same project.

#include "base/encoding.h"
#include "bench/support/bench_project.h"
#include "model/kqp_filer.h"

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <cstring>
#include <map>
#include <memory>
#include <pugixml.hpp>

namespace {

/// The files of one size, made once.
struct Files {
    std::string project;
    std::string xml;
    std::string content;
};

bench::Workbench& workbench() {
    static bench::Workbench instance;
    return instance;
}

const Files& filesOf(std::int64_t drawings) {
    static std::map<std::int64_t, Files> made;
    Files& files = made[drawings];
    if (files.project.empty()) {
        const auto count = static_cast<std::size_t>(drawings);
        files.content = bench::projectText(count);
        files.project = workbench().put(std::to_string(drawings) + ".kqp", files.content);
        files.xml = workbench().put(std::to_string(drawings) + ".xml", bench::projectXml(count));
    }
    return files;
}

/// The whole file in memory that is not filled beforehand, as every contender here has it.
struct Bytes {
    std::unique_ptr<char[]> data;
    std::size_t size = 0;
};

Bytes readAll(const std::string& path) {
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    const off_t end = lseek(file, 0, SEEK_END);
    lseek(file, 0, SEEK_SET);
    Bytes bytes{
        std::unique_ptr<char[]>(new char[static_cast<std::size_t>(end)]), static_cast<std::size_t>(end)};
    for (std::size_t done = 0; done < bytes.size;) {
        const ssize_t count = read(file, bytes.data.get() + done, bytes.size - done);
        if (count <= 0)
            std::abort();
        done += static_cast<std::size_t>(count);
    }
    close(file);
    return bytes;
}

void report(benchmark::State& state) {
    const auto drawings = static_cast<double>(state.range(0) * state.iterations());
    state.counters["ns/drawing"] =
        benchmark::Counter(drawings / 1e9, benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
    state.SetBytesProcessed(
        state.iterations() * static_cast<std::int64_t>(filesOf(state.range(0)).content.size()));
}

void yardstickReadAndScan(benchmark::State& state) {
    const Files& files = filesOf(state.range(0));
    for (auto _ : state) {
        const Bytes bytes = readAll(files.project);
        std::size_t lines = 0;
        const char* const end = bytes.data.get() + bytes.size;
        for (const char* at = bytes.data.get(); at < end; ++at, ++lines) {
            at = static_cast<const char*>(std::memchr(at, '\n', static_cast<std::size_t>(end - at)));
            if (!at)
                break;
        }
        benchmark::DoNotOptimize(lines);
    }
    report(state);
}

void yardstickReadAndDecode(benchmark::State& state) {
    const Files& files = filesOf(state.range(0));
    for (auto _ : state) {
        const Bytes bytes = readAll(files.project);
        benchmark::DoNotOptimize(ryv::decodeUtf8({bytes.data.get(), bytes.size}));
    }
    report(state);
}

void yardstickXml(benchmark::State& state) {
    const Files& files = filesOf(state.range(0));
    for (auto _ : state) {
        pugi::xml_document document;
        if (!document.load_file(files.xml.c_str()))
            state.SkipWithError("the XML does not parse");
        benchmark::DoNotOptimize(document.document_element());
    }
    report(state);
}

void readProject(benchmark::State& state) {
    const ryv::CString path = workbench().modulePath(filesOf(state.range(0)).project);
    for (auto _ : state) {
        auto data = std::make_unique<ryv::RyvPrmProjectData>();
        bench::readProject(path, *data);
        benchmark::DoNotOptimize(data->getProjFileDetails().size());
        state.PauseTiming(); // letting a project go is not part of reading it
        data.reset();
        state.ResumeTiming();
    }
    report(state);
}

void yardstickEncodeAndWrite(benchmark::State& state) {
    const Files& files = filesOf(state.range(0));
    const ryv::CString text = ryv::decodeUtf8(files.content);
    const std::string path = files.project + ".yardstick";
    for (auto _ : state) {
        const std::string bytes = ryv::toUtf8(text);
        const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
        if (write(file, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size()) || fsync(file) != 0)
            state.SkipWithError("cannot write");
        close(file);
    }
    report(state);
}

void writeProject(benchmark::State& state) {
    ryv::RyvPrmProjectData data;
    const ryv::CString path = workbench().modulePath(filesOf(state.range(0)).project);
    ryv::RyvPrmKQPFiler filer(path, true, true);
    filer.readProject(data);
    for (auto _ : state)
        if (!filer.writeProject(data))
            state.SkipWithError("cannot write");
    report(state);
}

void sizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)->UseRealTime();
}

BENCHMARK(yardstickReadAndScan)->Apply(sizes);
BENCHMARK(yardstickReadAndDecode)->Apply(sizes);
BENCHMARK(yardstickXml)->Apply(sizes);
BENCHMARK(readProject)->Apply(sizes);
BENCHMARK(yardstickEncodeAndWrite)->Apply(sizes);
BENCHMARK(writeProject)->Apply(sizes);

} // namespace

BENCHMARK_MAIN();
