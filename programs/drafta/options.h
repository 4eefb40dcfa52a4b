// The command line of drafta.
#pragma once

#include "embedded/palettes/screen.h"

#include <string>
#include <utility>
#include <vector>

namespace drafta {

struct Options {
    enum class Mode { window, screenshot, console, batch, help, version };
    Mode mode = Mode::window;
    std::string batchFile;
    std::string pictureFile; ///< of the screenshot
    std::string answersFile;
    std::string profileFolder;
    bool logsEvents = false;
    bool loadsModules = true;
    Screen screen;
    bool isInBackground = false;
    std::vector<std::string> modules; ///< to load; none: the one that the program brings
    std::vector<std::pair<char, std::string>> drives;
    std::vector<std::string> files; ///< drawings and projects to begin with
};

/// Takes the words behind the program's name. False, with one line in `problem`, when they make no sense.
bool parseOptions(int argc, char** argv, Options& options, std::string& problem);

/// What --help prints.
const char* helpText() noexcept;

} // namespace drafta
