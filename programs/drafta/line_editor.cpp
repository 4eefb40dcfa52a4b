#include "programs/drafta/line_editor.h"

#include "programs/drafta/history_file.h"
#include "programs/drafta/piped_lines.h"
#include "programs/drafta/terminal_line.h"

#include <unistd.h>

#include <clocale>
#include <utility>
#include <vector>

namespace drafta {

/// Lines that are being typed: each was asked for by work that was done while the one before it was typed.
class LineEditor::Terminal {
public:
    explicit Terminal(std::string historyFile) : history_(std::move(historyFile)) {
        std::setlocale(LC_CTYPE, "C.UTF-8"); // for the editing library; nothing else here asks for a locale
    }

    std::optional<std::string> read(std::string_view prompt, const BackgroundWork& work);
    void putAside();

private:
    /// Counts a line as typed for as long as it lives.
    class Typing {
    public:
        explicit Typing(std::size_t& typed) noexcept : typed_(typed) { ++typed_; }
        Typing(const Typing&) = delete;
        Typing& operator=(const Typing&) = delete;
        ~Typing() { --typed_; }

    private:
        std::size_t& typed_;
    };

    HistoryFile history_;
    std::vector<std::unique_ptr<TerminalLine>> lines_;
    std::size_t typed_ = 0; // how many of them are being typed
};

std::optional<std::string> LineEditor::Terminal::read(std::string_view prompt, const BackgroundWork& work) {
    putAside();
    if (lines_.size() == typed_)
        lines_.push_back(std::make_unique<TerminalLine>(history_.lines()));
    const Typing typing(typed_);
    std::optional<std::string> line = lines_[typed_ - 1]->read(prompt, work);
    if (line && !line->empty())
        history_.add(*line);
    return line;
}

void LineEditor::Terminal::putAside() {
    if (typed_ != 0)
        lines_[typed_ - 1]->putAside();
}

LineEditor::LineEditor(std::string historyFile) {
    if (isatty(STDIN_FILENO) == 1)
        terminal_ = std::make_unique<Terminal>(std::move(historyFile));
    else
        piped_ = std::make_unique<PipedLines>(STDIN_FILENO);
}

LineEditor::~LineEditor() = default;

std::optional<std::string> LineEditor::read(std::string_view prompt) {
    return terminal_ ? terminal_->read(prompt, work_) : piped_->read(work_);
}

void LineEditor::putAside() {
    if (terminal_)
        terminal_->putAside();
}

} // namespace drafta
