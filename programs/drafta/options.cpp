#include "programs/drafta/options.h"

#include <getopt.h>

#include <array>
#include <cstdlib>

namespace drafta {

namespace {

constexpr std::array<option, 14> known = {{{"console", no_argument, nullptr, 'c'},
    {"batch", required_argument, nullptr, 'b'}, {"screenshot", required_argument, nullptr, 'o'},
    {"answers", required_argument, nullptr, 'a'}, {"profile", required_argument, nullptr, 'p'},
    {"drive", required_argument, nullptr, 'd'}, {"log-events", no_argument, nullptr, 'l'},
    {"module", required_argument, nullptr, 'm'}, {"no-module", no_argument, nullptr, 'n'},
    {"screen", required_argument, nullptr, 's'}, {"background", no_argument, nullptr, 'g'},
    {"help", no_argument, nullptr, 'h'}, {"version", no_argument, nullptr, 'v'}, {nullptr, 0, nullptr, 0}}};

std::string variable(const char* name) {
    const char* const value = std::getenv(name);
    return value ? value : "";
}

std::string usualProfile() {
    if (const std::string folder = variable("XDG_CONFIG_HOME"); folder.starts_with('/'))
        return folder + "/drafta";
    const std::string home = variable("HOME");
    return home.starts_with('/') ? home + "/.config/drafta" : std::string();
}

bool takeDrive(const std::string& text, Options& options) {
    const bool good = text.size() > 2 && text[1] == '=' &&
                      ((text[0] >= 'A' && text[0] <= 'Z') || (text[0] >= 'a' && text[0] <= 'z'));
    if (good)
        options.drives.emplace_back(text[0], text.substr(2));
    return good;
}

bool takeScreen(const std::string& text, Options& options) {
    const std::optional<Screen> screen = Screen::parse(text);
    options.screen = screen.value_or(Screen());
    return screen.has_value();
}

bool setMode(Options& options, Options::Mode mode, std::string& problem) {
    const bool leaves = mode == Options::Mode::help || mode == Options::Mode::version;
    if (!leaves && options.mode != Options::Mode::window && options.mode != mode) {
        problem = "--console, --batch and --screenshot exclude each other";
        return false;
    }
    options.mode = mode;
    return true;
}

bool take(int letter, Options& options, std::string& problem) {
    switch (letter) {
    case 'c':
        return setMode(options, Options::Mode::console, problem);
    case 'b':
        options.batchFile = optarg;
        return setMode(options, Options::Mode::batch, problem);
    case 'o':
        options.pictureFile = optarg;
        return setMode(options, Options::Mode::screenshot, problem);
    case 'h':
        return setMode(options, Options::Mode::help, problem);
    case 'v':
        return setMode(options, Options::Mode::version, problem);
    case 'a':
        options.answersFile = optarg;
        return true;
    case 'p':
        options.profileFolder = optarg;
        return true;
    case 'l':
        options.logsEvents = true;
        return true;
    case 'm':
        options.modules.emplace_back(optarg);
        return true;
    case 'n':
        options.loadsModules = false;
        return true;
    case 'g':
        options.isInBackground = true;
        return true;
    case 's':
        if (takeScreen(optarg, options))
            return true;
        problem = "--screen wants WIDTHxHEIGHT[@PERCENT], not \"" + std::string(optarg) + "\"";
        return false;
    case 'd':
        if (takeDrive(optarg, options))
            return true;
        problem = "--drive wants LETTER=FOLDER, not \"" + std::string(optarg) + "\"";
        return false;
    default:
        problem = optind > 1 ? "" : "unknown option";
        return false;
    }
}

} // namespace

bool parseOptions(int argc, char** argv, Options& options, std::string& problem) {
    opterr = 0;
    for (int letter; (letter = getopt_long(argc, argv, ":", known.data(), nullptr)) != -1;) {
        if (letter == '?' || letter == ':') {
            problem =
                std::string(letter == '?' ? "unknown option " : "value missing behind ") + argv[optind - 1];
            return false;
        }
        if (!take(letter, options, problem))
            return false;
        if (options.mode == Options::Mode::help || options.mode == Options::Mode::version)
            return true;
    }
    for (; optind < argc; ++optind)
        options.files.emplace_back(argv[optind]);
    if (options.profileFolder.empty())
        options.profileFolder = usualProfile();
    if (options.profileFolder.empty())
        problem = "HOME does not say where your settings are: name their folder with --profile";
    return !options.profileFolder.empty();
}

const char* helpText() noexcept {
    return R"(usage: drafta [OPTION]... [FILE]...
       drafta --console [OPTION]... [FILE]...
       drafta --batch FILE.lsp [OPTION]... [FILE]...
       drafta --screenshot FILE.png [OPTION]... [FILE]...

The embedded host of the project manager: documents, drawings, commands and LISP.
Without a mode it opens its window; where there is no display it says so and prints the
palettes as text.

  --console        a command line: host commands, and LISP when a line begins with "("
  --batch FILE     loads a LISP file and leaves; what it prints goes to standard output
  --screenshot F   draws the window as it opens into a PNG file and leaves; needs no display
  --answers FILE   what questions and forms answer
  --profile DIR    the folder of the user's settings, instead of $XDG_CONFIG_HOME/drafta
  --drive X=DIR    lets a drive letter stand for a folder; may be repeated
  --module FILE    a plug-in module to load instead of RyvPageMan.so; may be repeated
  --no-module      none is loaded
  --screen SIZE    the screen to lay palettes out for, WIDTHxHEIGHT[@PERCENT]; 1920x1080@100
  --background     works for another program and shows no palettes
  --log-events     what the module tells of projects, one line an event on standard error
  --help           this text
  --version        the version

FILEs are drawings (.dwg) that are opened and projects (.kqp) of which the last becomes
the active one. Exit code: 0 done, 1 a LISP error in the batch file, 2 usage or input error,
128 and its number when a signal (SIGTERM, SIGHUP) made the program leave.
)";
}

} // namespace drafta
