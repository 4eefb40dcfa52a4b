#include "programs/drafta/session.h"

#include "base/encoding.h"
#include "base/fold.h"
#include "base/text.h"
#include "programs/drafta/exit_codes.h"
#include "programs/drafta/host_signals.h"
#include "siblings/file_content.h"

#include <algorithm>
#include <filesystem>
#include <unistd.h>

namespace drafta {

namespace {

std::string productFolder() {
    std::error_code error;
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
    return (program.parent_path().parent_path() / "share" / "drafta").string();
}

/// Where the build puts the module, and where it is installed.
std::string ownModule() {
    std::error_code error;
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
    return (program.parent_path().parent_path() / "lib" / "RyvPageMan.so").string();
}

bool loadModules(Host& host, const Options& options, std::string& problem) {
    if (!options.loadsModules)
        return true;
    const std::vector<std::string> files =
        options.modules.empty() ? std::vector<std::string>{ownModule()} : options.modules;
    return std::all_of(
        files.begin(), files.end(), [&](const std::string& file) { return host.loadModule(file, problem); });
}

bool takeAnswers(Host& host, const std::string& file, std::string& problem) {
    ryv::ByteBuffer bytes;
    ryv::Fingerprint fingerprint;
    ryv::Platform& ports = host.platform();
    const ryv::FileStatus status =
        ryv::readWholeFile(*ports.os.files, ports.os.paths->fromNative(file), bytes, fingerprint);
    if (!status.ok()) {
        problem = file + ": " + describe(status.error);
        return false;
    }
    Answers answers;
    ryv::CString reason;
    ryv::TextEncoding encoding{};
    if (!Answers::parse(ryv::decodeDetecting(bytes.view(), encoding), answers, reason)) {
        problem = file + ": " + ryv::toUtf8(reason);
        return false;
    }
    host.userInterface().setAnswers(std::move(answers));
    return true;
}

bool isProject(ryv::CStringView path) {
    return path.size() >= 4 && ryv::equalNoCase(path.substr(path.size() - 4), u".kqp");
}

} // namespace

HostOptions Session::hostOptions() {
    HostOptions options;
    options.profileFolder = options_.profileFolder;
    options.productFolder = productFolder();
    options.print = [this](std::string_view text) { screen_.print(text); };
    options.printError = [this](std::string_view text) {
        makeRoom();
        if (::isatty(STDOUT_FILENO) && ::isatty(STDERR_FILENO))
            screen_.beginLine(); // both stand on one screen
        std::fwrite(text.data(), 1, text.size(), stderr);
    };
    options.logsEvents = options_.logsEvents;
    options.screen = options_.screen;
    options.isInBackground = options_.isInBackground;
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
    for (const auto& [letter, folder] : options_.drives)
        host_.mapper().mapDrive(static_cast<char16_t>(letter), folder);
    std::string problem;
    if (!options_.answersFile.empty() && !takeAnswers(host_, options_.answersFile, problem))
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
    // Before the projects of the last run: what the user names now comes first, should names be equal.
    bool opened = true;
    host_.whenReady([&] { opened = openFiles(true); });
    host_.newDocument();
    host_.runPending();
    opened = openFiles(false) && opened;
    if (!opened && !isConsole())
        return inputError;
    return isConsole() ? runConsole() : runBatch();
}

/// The projects among the files of the command line, or the drawings.
bool Session::openFiles(bool projects) {
    bool opened = true;
    for (const std::string& file : options_.files) {
        const ryv::CString path = host_.platform().os.paths->fromNative(file);
        if (isProject(path) == projects)
            opened =
                !host_.hasQuit() && (projects ? host_.openProject(path) : host_.openDocument(path)) && opened;
    }
    return opened;
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
    if (host_.prompt() != u"Command: ")
        complain("the last expression is not closed");
    host_.warnOfChanges();
    return done;
}

} // namespace drafta
