// Finding the settings block of drawings and reading its attributes, and listing what is to be painted,
// beside what one pass over the same pairs costs at least, and what a well-known library takes. One large
// drawing has the block at its end; the small ones are as a project has them.

#include "base/text.h"
#include "bench/support/bench_project.h"
#include "embedded/drawings/display_list.h"
#include "embedded/drawings/drawing_view.h"

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <map>
#include <memory>
#include <string_view>

namespace {

constexpr std::size_t attributes = 77;

bench::Workbench& workbench() {
    static bench::Workbench instance;
    return instance;
}

/// A drawing with so many lines, and the block behind them.
std::string drawingText(std::size_t lines) {
    drafta::DxfWriter writer({true, true});
    writer.pair(0, "SECTION")
        .pair(2, "HEADER")
        .pair(9, "$DWGCODEPAGE")
        .pair(3, "ANSI_1252")
        .pair(0, "ENDSEC");
    writer.pair(0, "SECTION").pair(2, "ENTITIES");
    for (std::size_t i = 0; i < lines; ++i) {
        const auto x = static_cast<double>(i) * 0.25;
        writer.pair(0, "LINE").handle(5, 256 + i).pair(8, "WIRES").real(10, x).real(20, 12.5).real(30, 0);
        writer.real(11, x + 2.75).real(21, 1.125).real(31, 0);
    }
    writer.pair(0, "INSERT")
        .pair(5, "10")
        .pair(8, "SETTINGS")
        .integer(66, 1)
        .pair(2, "KQ_M")
        .real(10, 0)
        .real(20, 0);
    for (std::size_t i = 0; i < attributes; ++i) {
        writer.pair(0, "ATTRIB")
            .handle(5, 32 + i)
            .pair(8, "SETTINGS")
            .real(10, 0)
            .real(20, -1.5 * static_cast<double>(i))
            .real(40, 0.2);
        writer.pair(1, "value").pair(2, "SETTING_" + std::to_string(i)).integer(70, 1);
    }
    writer.pair(0, "SEQEND").pair(5, "11").pair(8, "SETTINGS").pair(0, "ENDSEC").pair(0, "EOF");
    return writer.text();
}

/// The files of a benchmark: one large drawing (0), or so many small ones.
struct Drawings {
    std::vector<std::string> native;
    std::vector<ryv::CString> module;
    std::size_t bytes = 0;
};

const Drawings& drawingsOf(std::int64_t count) {
    static std::map<std::int64_t, Drawings> made;
    Drawings& drawings = made[count];
    if (!drawings.native.empty())
        return drawings;
    constexpr std::size_t linesOfLarge = 190'000, linesOfSmall = 170;
    const std::string text = drawingText(count == 0 ? linesOfLarge : linesOfSmall);
    for (std::int64_t i = 0; i < std::max<std::int64_t>(count, 1); ++i) {
        drawings.native.push_back(
            workbench().put(std::to_string(count) + "-" + std::to_string(i) + ".dwg", text));
        drawings.module.push_back(workbench().modulePath(drawings.native.back()));
        drawings.bytes += text.size();
    }
    return drawings;
}

void report(benchmark::State& state) {
    const Drawings& drawings = drawingsOf(state.range(0));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(drawings.bytes));
}

/// read() and all lines two by two, the first of each a number: what nobody can do without.
std::size_t passOver(const std::string& path) {
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    const auto size = static_cast<std::size_t>(lseek(file, 0, SEEK_END));
    lseek(file, 0, SEEK_SET);
    const std::unique_ptr<char[]> bytes(new char[size]);
    for (std::size_t done = 0; done < size;) {
        const ssize_t count = read(file, bytes.get() + done, size - done);
        if (count <= 0)
            std::abort();
        done += static_cast<std::size_t>(count);
    }
    close(file);
    const auto lineEnd = [](const char* at, const char* end) {
        const void* const feed = std::memchr(at, '\n', static_cast<std::size_t>(end - at));
        return feed ? static_cast<const char*>(feed) : end;
    };
    std::size_t records = 0;
    for (const char *at = bytes.get(), *end = at + size; at < end;) {
        const char* const codeEnd = lineEnd(at, end);
        int code = 0;
        for (; at < codeEnd; ++at)
            code = *at >= '0' && *at <= '9' ? code * 10 + (*at - '0') : code;
        records += code == 0 ? 1 : 0;
        at = codeEnd < end ? lineEnd(codeEnd + 1, end) + 1 : end;
    }
    return records;
}

void yardstickPassOverPairs(benchmark::State& state) {
    const Drawings& drawings = drawingsOf(state.range(0));
    for (auto _ : state)
        for (const std::string& path : drawings.native)
            benchmark::DoNotOptimize(passOver(path));
    report(state);
}

void readSettings(benchmark::State& state) {
    const Drawings& drawings = drawingsOf(state.range(0));
    drafta::PosixPlatform host;
    for (auto _ : state)
        for (const ryv::CString& path : drawings.module) {
            ryv::DrawingResult result;
            drafta::DrawingView view(drafta::Drawing::load(*host.platform().os.files, path, result));
            if (!view.firstReference(u"KQ_M") || view.attributes().size() != attributes)
                std::abort();
        }
    report(state);
}

/// Changes every attribute of the drawings in memory, loading included.
void writeSettings(benchmark::State& state) {
    const Drawings& drawings = drawingsOf(state.range(0));
    drafta::PosixPlatform host;
    for (auto _ : state)
        for (const ryv::CString& path : drawings.module) {
            ryv::DrawingResult result;
            drafta::DrawingView view(drafta::Drawing::load(*host.platform().os.files, path, result));
            bool written = view.firstReference(u"KQ_M");
            for (const ryv::DrawingAttribute& attribute : view.attributes())
                written = written && view.writeAttribute(attribute.tag, u"another value");
            if (!written)
                std::abort();
        }
    report(state);
}

/// All that is to be painted, loading included.
void listShapes(benchmark::State& state) {
    const Drawings& drawings = drawingsOf(state.range(0));
    drafta::PosixPlatform host;
    for (auto _ : state)
        for (const ryv::CString& path : drawings.module) {
            ryv::DrawingResult result;
            const auto drawing = drafta::Drawing::load(*host.platform().os.files, path, result);
            if (!drawing || drafta::makeDisplayList(drawing->content()).lines.empty())
                std::abort();
        }
    report(state);
}

/// The script that stands beside this file.
std::string scriptPath() {
    const std::string_view here = __FILE__;
    return std::string(here.substr(0, here.rfind('.'))) + ".py";
}

/// The script's own clock counts.
void yardstickEzdxf(benchmark::State& state) {
    const Drawings& drawings = drawingsOf(state.range(0));
    std::string command = "/usr/bin/python3 " + scriptPath();
    for (const std::string& path : drawings.native)
        command += " '" + path + "'";
    for (auto _ : state) {
        const std::unique_ptr<std::FILE, int (*)(std::FILE*)> pipe(popen(command.c_str(), "r"), pclose);
        double seconds = 0;
        std::size_t count = 0;
        if (!pipe || std::fscanf(pipe.get(), "%lf %zu", &seconds, &count) != 2 ||
            count != attributes * drawings.native.size()) {
            state.SkipWithError("ezdxf did not read the drawings (is python3-ezdxf installed?)");
            return;
        }
        state.SetIterationTime(seconds);
    }
    report(state);
}

BENCHMARK(yardstickPassOverPairs)->Arg(0)->Arg(200)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(readSettings)->Arg(0)->Arg(200)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(writeSettings)->Arg(0)->Arg(200)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(listShapes)->Arg(0)->Arg(200)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(yardstickEzdxf)->Arg(0)->Arg(200)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(1);

} // namespace

BENCHMARK_MAIN();
