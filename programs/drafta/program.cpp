#include "programs/drafta/program.h"

#include "base/encoding.h"
#include "base/fold.h"
#include "base/text.h"
#include "embedded/documents/host.h"
#include "programs/drafta/line_editor.h"
#include "programs/drafta/options.h"
#include "siblings/file_content.h"

#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <unistd.h>

namespace drafta {

namespace {

constexpr int done = 0;
constexpr int lispError = 1;
constexpr int inputError = 2;

std::atomic<Host*> interruptible = nullptr;

extern "C" void onInterrupt(int) {
    if (Host* const host = interruptible.load())
        host->interrupt();
}

/// Standard output; knows whether the cursor is at the begin of a line.
class Screen {
public:
    /// `makeRoom` is called before anything is printed.
    Screen(bool keepsBlankLines, std::function<void()> makeRoom)
        : keepsBlankLines_(keepsBlankLines), makeRoom_(std::move(makeRoom)) {}

    /// Texts of the host begin with a line feed, which only a console that is not at the begin of a line
    /// needs.
    void print(std::string_view text) {
        if (!keepsBlankLines_ && atLineBegin_ && text.starts_with('\n'))
            text.remove_prefix(1);
        if (text.empty())
            return;
        makeRoom_();
        std::fwrite(text.data(), 1, text.size(), stdout);
        atLineBegin_ = text.back() == '\n';
        std::fflush(stdout);
    }
    void beginLine() {
        if (!atLineBegin_)
            print("\n");
    }
    /// A line was typed, and its end with it.
    void typed() { atLineBegin_ = true; }

private:
    bool keepsBlankLines_;
    std::function<void()> makeRoom_;
    bool atLineBegin_ = true;
};

int complain(const std::string& problem, int code = inputError) {
    std::fprintf(stderr, "drafta: %s\n", problem.c_str());
    return code;
}

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

std::string productFolder() {
    std::error_code error;
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
    return (program.parent_path().parent_path() / "share" / "drafta").string();
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

bool openFiles(Host& host, const std::vector<std::string>& files) {
    bool opened = true;
    for (const std::string& file : files) {
        const ryv::CString path = host.platform().os.paths->fromNative(file);
        if (ryv::equalNoCase(ryv::CStringView(path).substr(path.size() < 4 ? 0 : path.size() - 4), u".kqp")) {
            opened = host.openProject(path) && opened;
        } else {
            opened = host.openDocument(path) && opened;
        }
    }
    return opened;
}

int runBatch(Host& host, Screen& screen, const Options& options) {
    if (!openFiles(host, options.files))
        return inputError;
    ryv::Platform& ports = host.platform();
    ryv::FileInformation information;
    ryv::FileStatus status =
        ports.os.files->information(ports.os.paths->fromNative(options.batchFile), information);
    if (status.ok() && !information.isRegular)
        status.error = information.isFolder ? ryv::FileError::isFolder : ryv::FileError::notRegular;
    if (!status.ok())
        return complain(options.batchFile + ": " + describe(status.error));
    const bool good = host.loadLisp(host.platform().os.paths->fromNative(options.batchFile));
    screen.beginLine();
    host.warnOfChanges();
    return good ? done : lispError;
}

int runConsole(Host& host, Screen& screen, LineEditor& lines, const Options& options) {
    openFiles(host, options.files);
    bool asked = false;
    while (!host.hasQuit()) {
        screen.beginLine();
        const std::optional<std::string> line = lines.read(ryv::nameToBytes(host.prompt()));
        screen.typed();
        if (host.hasQuit()) {
            break;
        } else if (line) {
            host.runLine(ryv::decodeUtf8(*line));
        } else if (lines.isInteractive() && !asked) {
            host.quit(); // once: whoever ends the input again means it
            asked = true;
        } else {
            break;
        }
    }
    screen.beginLine();
    if (host.prompt() != u"Command: ")
        complain("the last expression is not closed");
    host.warnOfChanges();
    return done;
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

    const bool isConsole = options.mode == Options::Mode::console;
    std::optional<LineEditor> lines;
    const auto makeRoom = [&] {
        if (lines)
            lines->putAside();
    };
    Screen screen(!isConsole, makeRoom);
    if (isConsole)
        lines.emplace(options.profileFolder + "/history");
    HostOptions hostOptions;
    hostOptions.profileFolder = options.profileFolder;
    hostOptions.productFolder = productFolder();
    hostOptions.print = [&](std::string_view text) { screen.print(text); };
    hostOptions.printError = [&](std::string_view text) {
        makeRoom();
        std::fwrite(text.data(), 1, text.size(), stderr);
    };
    hostOptions.logsEvents = options.logsEvents;
    if (isConsole)
        hostOptions.readLine = [&](std::string_view prompt) {
            screen.beginLine();
            // A prompt may have several lines; only the last one stands in front of what is typed.
            const std::size_t last = prompt.rfind('\n') + 1;
            screen.print(prompt.substr(0, last));
            std::optional<std::string> line = lines->read(prompt.substr(last));
            screen.typed();
            return line;
        };
    Host host(std::move(hostOptions));
    for (const auto& [letter, folder] : options.drives)
        host.mapper().mapDrive(static_cast<char16_t>(letter), folder);
    if (!options.answersFile.empty() && !takeAnswers(host, options.answersFile, problem))
        return complain(problem);
    std::signal(SIGXFSZ, SIG_IGN); // a limit on file sizes is a failure to write, to be reported like others
    if (lines)
        lines->setWork({host.pendingDescriptor(), [&] {
                            host.runPending();
                            screen.beginLine();
                            return !host.hasQuit();
                        }});
    interruptible = &host;
    struct sigaction action {};
    action.sa_handler = onInterrupt; // without SA_RESTART, so that waiting for a line ends as well
    sigaction(SIGINT, &action, nullptr);
    host.newDocument();
    const int code = isConsole ? runConsole(host, screen, *lines, options) : runBatch(host, screen, options);
    interruptible = nullptr;
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0)
        return complain("what was printed could not be written");
    return code;
}

} // namespace drafta
