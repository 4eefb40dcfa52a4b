// Lines from the person in front of a terminal, with editing and a history; or from a pipe.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace drafta {

class LineEditor {
public:
    /// With a terminal as standard input, lines can be edited and are kept in the history file, whose folder
    /// is made when it is missing. Otherwise lines are read as they come and nothing is prompted for.
    explicit LineEditor(std::string historyFile);
    LineEditor(const LineEditor&) = delete;
    LineEditor& operator=(const LineEditor&) = delete;
    ~LineEditor();

    /// The next line without its end; nothing at the end of input. When the break key ends it, the line is
    /// empty.
    std::optional<std::string> read(std::string_view prompt);

    /// True when a person is at the other end.
    bool isInteractive() const noexcept { return terminal_ != nullptr; }

private:
    struct Terminal;
    std::unique_ptr<Terminal> terminal_;
};

} // namespace drafta
