// Listing the drawings of a project whose settings are not the project's, from the command to its report,
// beside what reading the files' bytes costs at least, and what a well-known library takes to read the same
// files. Every tenth drawing differs. Small drawings are of 25 KB, large ones of 100.

#include "base/text.h"
#include "bench/support/manager_bench.h"
#include "embedded/drawings/drawing_view.h"
#include "embedded/drawings/dxf_writer.h"
#include "toolkit/dialog.h"
#include "toolkit/text_field.h"
#include "ui/dialogs/work/report_dialog.h"
#include "ui/dialogs/work/settings_work.h"

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <map>
#include <memory>
#include <string_view>

namespace {

using ryv::CString;
using ryv::RyvCfgDrawingSettings;

constexpr std::size_t drawingCount = 1000;
constexpr std::size_t lineSize = 118; ///< bytes of a line in a drawing

/// The block behind so many lines.
std::string drawingText(std::size_t lines, bool differs) {
    RyvCfgDrawingSettings settings;
    settings.fillWithDefaults(nullptr, false);
    const CString other = u"%S%N";
    if (differs)
        settings.setValue(5, &other);
    drafta::DxfWriter writer({true, true});
    writer.pair(0, "SECTION").pair(2, "ENTITIES");
    for (std::size_t i = 0; i < lines; ++i) {
        const auto x = static_cast<double>(i) * 0.25;
        writer.pair(0, "LINE").handle(5, 256 + i).pair(8, "WIRES").real(10, x).real(20, 12.5).real(30, 0);
        writer.real(11, x + 2.75).real(21, 1.125).real(31, 0);
    }
    writer.pair(0, "INSERT")
        .pair(5, "10")
        .pair(8, "0")
        .integer(66, 1)
        .pair(2, "KQ_M")
        .real(10, 0)
        .real(20, 0);
    for (int index = 0; index <= RyvCfgDrawingSettings::getMaxBracketIndex(); ++index) {
        CString tag;
        RyvCfgDrawingSettings::getKQ_MTagForIndex(index, tag);
        writer.pair(0, "ATTRIB").handle(5, 32 + static_cast<std::uint64_t>(index)).pair(8, "0").real(10, 0);
        writer.real(20, -1.5 * index).real(40, 0.2).pair(1, ryv::toAscii(*settings.find(index)));
        writer.pair(2, ryv::toAscii(tag)).integer(70, 1);
    }
    writer.pair(0, "SEQEND").pair(5, "11").pair(8, "0").pair(0, "ENDSEC").pair(0, "EOF");
    return writer.text();
}

class FileDrawings final : public ryv::HostDrawings {
public:
    std::unique_ptr<ryv::DrawingDatabase> open(ryv::CStringView path, ryv::DrawingResult& result) override {
        auto drawing = drafta::Drawing::load(*ryv::platform().os.files, path, result);
        return drawing ? std::make_unique<drafta::DrawingView>(std::move(drawing)) : nullptr;
    }
    std::unique_ptr<ryv::DrawingDatabase> ofDocument(ryv::DocumentId) override { return nullptr; }
    std::unique_ptr<ryv::DrawingDatabase> byNumber(std::int32_t) override { return nullptr; }
};

/// Counts the lines of the report.
class Reader final : public ryv::NullUserInterface {
public:
    int runModal(ryv::Dialog& dialog) override {
        const CString& text = dialog.control<ryv::TextField>(ryv::SettingsReportDlg::textId).text();
        lines = ryv::split(text, u'\n').size();
        return idCancel;
    }
    std::size_t lines = 0;
};

/// A project of a thousand drawings of a size.
class Project : public bench::ManagerBench {
public:
    explicit Project(std::size_t kilobytes) {
        ryv::platform().host.drawings = &drawings_;
        ryv::platform().ui = &reader;
        std::string lines;
        for (std::size_t i = 0; i < drawingCount; ++i) {
            const std::string name = "d" + std::to_string(i) + ".dwg";
            native.push_back(workbench.put(name, drawingText(kilobytes * 1000 / lineSize, i % 10 == 0)));
            lines += name + "\n";
        }
        id = put("p.kqp", lines);
        bench::require(manager().openProject(id, true), "the project does not open");
    }

    Reader reader;
    std::vector<std::string> native;
    CString id;

private:
    FileDrawings drawings_;
};

std::size_t kilobytesOf(const benchmark::State& state) {
    return static_cast<std::size_t>(state.range(0)) - 15; // the block's own
}

void listExceptions(benchmark::State& state) {
    Project project(kilobytesOf(state));
    for (auto _ : state) {
        ryv::listExceptions(project.id);
        if (project.reader.lines != drawingCount / 5 + 1) // a setting below each drawing
            state.SkipWithError("the list is not right");
    }
}

void yardstickReadBytes(benchmark::State& state) {
    const Project project(kilobytesOf(state));
    std::vector<char> bytes(1 << 20);
    for (auto _ : state)
        for (const std::string& path : project.native) {
            const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
            benchmark::DoNotOptimize(read(file, bytes.data(), bytes.size()));
            close(file);
        }
}

/// The script reads the settings blocks only; it stands beside drawing_bench. Its own clock counts.
void yardstickEzdxf(benchmark::State& state) {
    const Project project(kilobytesOf(state));
    const std::string_view here = __FILE__;
    std::string command =
        "/usr/bin/python3 " + std::string(here.substr(0, here.rfind('/'))) + "/drawing_bench.py";
    for (const std::string& path : project.native)
        command += " '" + path + "'";
    for (auto _ : state) {
        const std::unique_ptr<std::FILE, int (*)(std::FILE*)> pipe(popen(command.c_str(), "r"), pclose);
        double seconds = 0;
        std::size_t count = 0;
        if (!pipe || std::fscanf(pipe.get(), "%lf %zu", &seconds, &count) != 2 ||
            count != RyvCfgDrawingSettings::count * drawingCount) {
            state.SkipWithError("ezdxf did not read the drawings (is python3-ezdxf installed?)");
            return;
        }
        state.SetIterationTime(seconds);
    }
}

BENCHMARK(yardstickReadBytes)->Arg(25)->Arg(100)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(listExceptions)->Arg(25)->Arg(100)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(yardstickEzdxf)->Arg(25)->Arg(100)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(1);

} // namespace

BENCHMARK_MAIN();
