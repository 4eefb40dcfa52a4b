// One line at a time from a terminal, with editing, while other work goes on.
#pragma once

#include "programs/drafta/background_work.h"

#include <histedit.h>

#include <exception>
#include <optional>
#include <string>
#include <string_view>

namespace drafta {

/// The editing library knows nothing of other work, which is therefore done while it waits for a character:
/// it goes on with the line, a search or half a key sequence as if nothing had been. Only for work that
/// prints or asks is the line taken from the screen.
class TerminalLine {
public:
    /// `history` is not owned and outlives the line.
    explicit TerminalLine(History* history);
    TerminalLine(const TerminalLine&) = delete;
    TerminalLine& operator=(const TerminalLine&) = delete;
    ~TerminalLine() { el_end(line_); }

    /// The next line without its end; nothing at the end of input or when the work wants no more. Empty when
    /// a signal broke it off. Passes on what the work throws. Not to be called again before it returns: work
    /// that asks has a line of its own.
    std::optional<std::string> read(std::string_view prompt, const BackgroundWork& work);

    /// For work: takes the line from the screen, and the terminal back to its own ways, until the work is
    /// done.
    void putAside();

private:
    static TerminalLine& of(EditLine* line);
    static char* currentPrompt(EditLine* line) { return of(line).prompt_.data(); }
    static int readCharacter(EditLine* line, wchar_t* character);
    int nextCharacter(wchar_t& character);
    bool doWork() noexcept;
    void showAgain();

    EditLine* line_;
    std::string prompt_;
    const BackgroundWork* work_ = nullptr;
    bool isAside_ = false;
    Wake wake_ = Wake::input; // what ended the last wait
    std::exception_ptr failure_;
};

} // namespace drafta
