#include "programs/drafta/session.h"

#include "base/encoding.h"
#include "embedded/services/host_texts.h"
#include "programs/drafta/exit_codes.h"
#include "programs/drafta/host_signals.h"
#include "programs/drafta/start_up.h"

#include <unistd.h>

namespace drafta {

HostOptions Session::hostOptions() {
    HostOptions options = hostOptionsOf(options_);
    options.print = [this](std::string_view text) { screen_.print(text); };
    options.printError = [this](std::string_view text) {
        makeRoom();
        if (::isatty(STDOUT_FILENO) && ::isatty(STDERR_FILENO))
            screen_.beginLine(); // both stand on one screen
        std::fwrite(text.data(), 1, text.size(), stderr);
    };
    if (isConsole())
        options.readLine = [this](std::string_view prompt) { return readLine(prompt); };
    return options;
}

void Session::makeRoom() {
    if (lines_)
        lines_->putAside();
}

/// A prompt may have several lines; only the last one stands in front of what is typed.
std::optional<std::string> Session::readLine(std::string_view prompt) {
    screen_.beginLine();
    const std::size_t last = prompt.rfind('\n') + 1;
    screen_.print(prompt.substr(0, last));
    std::optional<std::string> line = lines_->read(prompt.substr(last));
    screen_.typed();
    return line;
}

void Session::connectLines() {
    lines_.emplace(options_.profileFolder + "/history");
    lines_->setWork({host_.pendingDescriptor(), [this] {
                         host_.runPending();
                         screen_.beginLine();
                         return !host_.hasQuit();
                     }});
}

int Session::run() {
    std::string problem;
    if (!prepare(host_, options_, problem))
        return complain(problem);
    if (isConsole())
        connectLines();
    const HostSignals signals(host_);
    const int code = work();
    if (signals.ending() != 0)
        return signalError + signals.ending();
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0)
        return complain("what was printed could not be written");
    return code;
}

int Session::work() {
    std::string problem;
    if (!loadModules(host_, options_, problem))
        return complain(problem);
    const bool opened = openFirst(host_, options_);
    if (!opened && !isConsole())
        return inputError;
    return isConsole() ? runConsole() : runBatch();
}

std::string Session::problemOfBatchFile() {
    ryv::Platform& ports = host_.platform();
    ryv::FileInformation information;
    ryv::FileStatus status =
        ports.os.files->information(ports.os.paths->fromNative(options_.batchFile), information);
    if (status.ok() && !information.isRegular)
        status.error = information.isFolder ? ryv::FileError::isFolder : ryv::FileError::notRegular;
    return status.ok() ? std::string() : options_.batchFile + ": " + describe(status.error);
}

int Session::runBatch() {
    if (const std::string problem = problemOfBatchFile(); !problem.empty())
        return complain(problem);
    const bool good = host_.loadLisp(host_.platform().os.paths->fromNative(options_.batchFile));
    screen_.beginLine();
    host_.warnOfChanges();
    return good ? done : lispError;
}

void Session::readConsole() {
    bool asked = false;
    while (!host_.hasQuit()) {
        screen_.beginLine();
        const std::optional<std::string> line = lines_->read(ryv::nameToBytes(host_.prompt()));
        screen_.typed();
        if (host_.hasQuit()) {
            return;
        } else if (line) {
            host_.runLine(ryv::decodeUtf8(*line));
            asked = false;
        } else if (lines_->isInteractive() && !asked) {
            host_.quit(); // whoever ends the input again at once means it
            asked = true;
        } else {
            return;
        }
    }
}

int Session::runConsole() {
    readConsole();
    screen_.beginLine();
    if (host_.prompt() != hostText(u"Command: "))
        complain("the last expression is not closed");
    host_.warnOfChanges();
    return done;
}

} // namespace drafta
