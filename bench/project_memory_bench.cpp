// How much memory a project takes at the most while it is read, measured in a process of its own.

#include "bench/support/bench_project.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>

namespace {

/// The largest resident size of this process so far, in bytes.
double peakBytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) * 1024;
}

void readSmallProject(bench::Workbench& workbench) {
    ryv::RyvPrmProjectData data;
    bench::readProject(workbench.modulePath(workbench.put("small.kqp", bench::projectText(10))), data);
}

void measure(std::size_t drawings) {
    bench::Workbench workbench;
    std::string native;
    const double fileBytes = [&] {
        const pid_t writer = fork(); // so that making the file does not count
        const std::string path = std::filesystem::path("/dev/shm") / "ryv-memory-bench.kqp";
        if (writer == 0) {
            std::FILE* const file = std::fopen(path.c_str(), "wb");
            const std::string text = bench::projectText(drawings);
            const bool written = file && std::fwrite(text.data(), 1, text.size(), file) == text.size();
            _exit(written && std::fclose(file) == 0 ? 0 : 1);
        }
        waitpid(writer, nullptr, 0);
        native = path;
        return static_cast<double>(std::filesystem::file_size(path));
    }();
    readSmallProject(workbench); // so that code and libraries that come in at their first use do not count
    const double before = peakBytes();
    ryv::RyvPrmProjectData data;
    bench::readProject(workbench.modulePath(native), data);
    const double peak = peakBytes() - before;
    std::filesystem::remove(native);
    std::printf("%7zu drawings  file %6.2f MB  peak while reading %7.2f MB  %.2f times the file\n", drawings,
        fileBytes / 1e6, peak / 1e6, peak / fileBytes);
}

} // namespace

int main() {
    for (const std::size_t drawings : {1000u, 10000u, 100000u}) {
        std::fflush(stdout);
        const pid_t child = fork();
        if (child == 0) {
            measure(drawings);
            std::fflush(stdout);
            _exit(0);
        }
        int status = 0;
        waitpid(child, &status, 0);
        if (status != 0)
            return 1;
    }
    return 0;
}
