#include "bench/support/bench_project.h"

#include "base/text.h"
#include "bridge/platform.h"
#include "model/kqp_filer.h"

#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <fstream>

namespace bench {

namespace {

constexpr std::size_t perSubfolder = 10;

std::string number(std::size_t n) {
    std::array<char, 16> digits;
    std::snprintf(digits.data(), digits.size(), "%06zu", n);
    return digits.data();
}

std::string trace(std::size_t n) {
    const std::size_t folder = n / perSubfolder;
    return "PLANT " + number(folder / 100) + "/AREA " + number(folder / 10) + "/CABINET " + number(folder);
}

std::string fileName(std::size_t n) {
    return "sheets\\drawing " + number(n) + ".dwg";
}

std::string descriptionLine(std::size_t n, std::size_t line) {
    constexpr std::array<const char*, 5> words = {
        "motor feeder ", "terminals -X", "cable W", "control of pump ", "wired to cabinet "};
    return words[line] + number(n * 7 + line);
}

void writeBlock(std::string& out, std::size_t n) {
    out += "=SECTION " + number(n / 50) + "\n==Sub-section " + number(n) + "\n";
    for (std::size_t line = 0; line < 5; ++line)
        out += "===" + descriptionLine(n, line) + "\n";
    out += "=====SUB=" + trace(n) + "\n" + fileName(n) + "\n";
}

void writeElement(std::string& out, std::size_t n) {
    out +=
        "<drawing section=\"SECTION " + number(n / 50) + "\" subsection=\"Sub-section " + number(n) + "\">\n";
    for (std::size_t line = 0; line < 5; ++line)
        out += "<d>" + descriptionLine(n, line) + "</d>\n";
    out += "<sub>" + trace(n) + "</sub>\n<file>" + fileName(n) + "</file></drawing>\n";
}

} // namespace

std::string projectText(std::size_t drawings) {
    std::string out = "*[1]Benchmark\n+[1]C:\\Libs\n?[5]%F%N\n";
    for (std::size_t n = 0; n < drawings; ++n)
        writeBlock(out, n);
    return out + "\n";
}

std::string projectXml(std::size_t drawings) {
    std::string out = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<project>\n";
    for (std::size_t n = 0; n < drawings; ++n)
        writeElement(out, n);
    return out + "</project>\n";
}

std::u16string drawingPath(std::size_t n) {
    return ryv::fromAscii("\\bench\\" + fileName(n));
}

std::u16string drawingTrace(std::size_t n) {
    return ryv::fromAscii(trace(n));
}

Workbench::Workbench() {
    const char* const chosen = std::getenv("BENCH_FOLDER");
    folder_ = std::filesystem::path(chosen ? chosen : "/dev/shm") / ("ryv-bench-" + std::to_string(getpid()));
    std::filesystem::create_directories(folder_);
    ryv::setPlatform(&platform_.platform());
}

Workbench::~Workbench() {
    ryv::setPlatform(nullptr);
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
}

std::string Workbench::put(const std::string& name, const std::string& content) const {
    const std::filesystem::path path = folder_ / name;
    std::ofstream(path, std::ios::binary) << content;
    return path.string();
}

ryv::CString Workbench::modulePath(const std::string& native) {
    return platform_.platform().os.paths->fromNative(native);
}

void readProject(const ryv::CString& path, ryv::RyvPrmProjectData& data) {
    ryv::RyvPrmKQPFiler filer(path, false, true);
    filer.readProject(data);
    if (filer.getLastError() != 0) {
        std::fputs("cannot read the project\n", stderr);
        std::exit(2);
    }
}

} // namespace bench
