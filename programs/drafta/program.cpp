#include "programs/drafta/program.h"

#include "embedded/os/posix_environment.h"
#include "programs/drafta/display.h"
#include "programs/drafta/exit_codes.h"
#include "programs/drafta/session.h"
#include "programs/drafta/window_session.h"
#include "resources/language.h"

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace drafta {

namespace {

/// A standard stream that is closed would lend its number to the next file that is opened, and what is
/// printed would go there.
void occupyStandardDescriptors() {
    for (int descriptor = ::open("/dev/null", O_RDWR); descriptor >= 0;
         descriptor = ::open("/dev/null", O_RDWR))
        if (descriptor > STDERR_FILENO) {
            ::close(descriptor);
            break;
        }
}

} // namespace

int run(int argc, char** argv) {
    occupyStandardDescriptors();
    Options options;
    std::string problem;
    if (!parseOptions(argc, argv, options, problem))
        return complain(problem + "; drafta --help says more");
    if (options.mode == Options::Mode::help)
        return std::fputs(helpText(), stdout) < 0 ? inputError : done;
    if (options.mode == Options::Mode::version)
        return std::puts("drafta " DRAFTA_VERSION) < 0 ? inputError : done;
    PosixEnvironment environment;
    ryv::setLanguage(ryv::languageOf(environment));
    std::signal(SIGXFSZ, SIG_IGN); // a limit on file sizes is a failure to write, to be reported like others
    switch (options.mode) {
    case Options::Mode::window:
        return hasDisplay() ? runWindow(options) : runWithoutDisplay(options);
    case Options::Mode::screenshot:
        return runScreenshot(options);
    default:
        return Session(options).run();
    }
}

} // namespace drafta
