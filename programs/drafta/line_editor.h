// Lines from the person in front of a terminal, with editing and a history; or from a pipe.
#pragma once

#include "programs/drafta/background_work.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace drafta {

class PipedLines;

class LineEditor {
public:
    /// With a terminal as standard input, lines can be edited and are kept in the history file, whose folder
    /// is made when it is missing. Otherwise lines are read as they come and nothing is prompted for.
    explicit LineEditor(std::string historyFile);
    LineEditor(const LineEditor&) = delete;
    LineEditor& operator=(const LineEditor&) = delete;
    ~LineEditor();

    /// What is done from now on while a line is waited for. It may read lines itself, and print after
    /// putAside(); what has been typed of the line stands on the screen again when the work is done.
    void setWork(BackgroundWork work) { work_ = std::move(work); }

    /// To be called before anything is printed: takes the line that is being typed, if there is one, from the
    /// screen until the work that prints is done. Work that does not print does not disturb the line.
    void putAside();

    /// The next line without its end; nothing at the end of input, or when the work that came meanwhile wants
    /// no more. When the break key ends it, the line is empty.
    std::optional<std::string> read(std::string_view prompt);

    /// True when a person is at the other end.
    bool isInteractive() const noexcept { return terminal_ != nullptr; }

private:
    class Terminal;
    BackgroundWork work_;
    std::unique_ptr<Terminal> terminal_;
    std::unique_ptr<PipedLines> piped_;
};

} // namespace drafta
