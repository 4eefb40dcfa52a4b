// The host with its console or its batch file.
#pragma once

#include "embedded/documents/host.h"
#include "programs/drafta/line_editor.h"
#include "programs/drafta/options.h"
#include "programs/drafta/standard_output.h"

namespace drafta {

class Session {
public:
    /// `options` outlive the object and say console or batch.
    explicit Session(const Options& options)
        : options_(options), screen_(!isConsole(), [this] { makeRoom(); }), host_(hostOptions()) {}

    /// From loading the modules to the last line; the program's exit code. Once.
    int run();

private:
    bool isConsole() const noexcept { return options_.mode == Options::Mode::console; }
    HostOptions hostOptions();
    void makeRoom();
    std::optional<std::string> readLine(std::string_view prompt);
    void connectLines();
    int work();
    std::string problemOfBatchFile();
    int runBatch();
    void readConsole();
    int runConsole();

    const Options& options_;
    std::optional<LineEditor> lines_;
    StandardOutput screen_;
    Host host_;
};

} // namespace drafta
