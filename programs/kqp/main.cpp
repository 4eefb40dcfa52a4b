// The command-line tool "kqp".
#include "bridge/platform.h"
#include "embedded/os/posix_platform.h"
#include "programs/kqp/program.h"

#include <csignal>
#include <unistd.h>

int main(int count, char* words[]) {
    kqp::holdStandardDescriptors();
    // A closed pipe and a limit on the size of files are failures to report, not reasons to vanish.
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    drafta::PosixPlatform ports;
    ryv::setPlatform(&ports.platform());
    kqp::Output out(STDOUT_FILENO);
    kqp::Output error(STDERR_FILENO);
    kqp::Console console{out, error};
    const int code = kqp::run({words + (count > 0 ? 1 : 0), words + count}, console);
    ryv::setPlatform(nullptr);
    return code;
}
