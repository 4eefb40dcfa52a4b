#include "programs/drafta/line_editor.h"

#include "programs/drafta/history_file.h"
#include "programs/drafta/piped_lines.h"

#include <histedit.h>
#include <unistd.h>

#include <cerrno>
#include <clocale>
#include <cstdio>
#include <cwchar>

namespace drafta {

/// The editing library knows nothing of other work. When there is some, its reading is broken off, the line
/// so far put aside, the work done, and reading begun again with that line: so the work may print and ask.
class LineEditor::Terminal {
public:
    explicit Terminal(std::string historyFile);
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;
    ~Terminal() { el_end(line_); }

    std::optional<std::string> read(std::string_view prompt, const BackgroundWork& work);

private:
    /// A line that is being typed.
    struct Draft {
        std::string prompt;
        int work = -1;
        std::string text;
        int cursor = 0; // in characters from the end, at or below 0
        bool isShown = true;
        Wake wake = Wake::input;
    };
    static Terminal& of(EditLine* line);
    static char* currentPrompt(EditLine* line);
    static int readCharacter(EditLine* line, wchar_t* character);
    int nextCharacter(wchar_t& character);
    void putAside();
    void showAgain();

    HistoryFile history_;
    EditLine* line_;
    Draft draft_;
    std::string noPrompt_;
};

LineEditor::Terminal::Terminal(std::string historyFile) : history_(std::move(historyFile)) {
    std::setlocale(LC_CTYPE, "C.UTF-8"); // for the editing library; nothing else here asks for a locale
    line_ = el_init("drafta", stdin, stdout, stderr);
    el_set(line_, EL_CLIENTDATA, this);
    el_set(line_, EL_PROMPT, currentPrompt);
    el_set(line_, EL_EDITOR, "emacs");
    el_set(line_, EL_HIST, history, history_.lines());
    el_set(line_, EL_GETCFN, readCharacter);
    el_source(line_, nullptr);
}

LineEditor::Terminal& LineEditor::Terminal::of(EditLine* line) {
    Terminal* terminal = nullptr;
    el_get(line, EL_CLIENTDATA, &terminal);
    return *terminal;
}

char* LineEditor::Terminal::currentPrompt(EditLine* line) {
    Terminal& own = of(line);
    return own.draft_.isShown ? own.draft_.prompt.data() : own.noPrompt_.data();
}

int LineEditor::Terminal::readCharacter(EditLine* line, wchar_t* character) {
    *character = L'\0';
    return of(line).nextCharacter(*character);
}

/// 1 with a character, 0 at the end of input, -1 when the reading is to be broken off.
int LineEditor::Terminal::nextCharacter(wchar_t& character) {
    if (!draft_.isShown)
        showAgain();
    for (std::mbstate_t state{};;) {
        draft_.wake = waitForInput(STDIN_FILENO, draft_.work);
        if (draft_.wake != Wake::input) {
            if (draft_.wake == Wake::work)
                putAside();
            return -1;
        }
        char byte = 0;
        const ssize_t count = ::read(STDIN_FILENO, &byte, 1);
        if (count <= 0)
            return count == 0 ? 0 : -1;
        const std::size_t length = std::mbrtowc(&character, &byte, 1, &state);
        if (length == static_cast<std::size_t>(-1))
            state = {}; // a byte that belongs to no character is dropped
        else if (length != static_cast<std::size_t>(-2))
            return 1;
    }
}

/// Takes the line from the screen; of one that goes over several rows the last is taken.
void LineEditor::Terminal::putAside() {
    const LineInfo* const info = el_line(line_);
    draft_.text.assign(info->buffer, info->lastchar);
    draft_.cursor = 0;
    for (const char* at = info->cursor; at != info->lastchar; ++at)
        draft_.cursor -= (static_cast<unsigned char>(*at) & 0xC0) != 0x80;
    draft_.isShown = false;
    const char* clear = nullptr;
    char name[] = "ce";
    el_get(line_, EL_GETTC, name, &clear);
    std::printf("\r%s", clear ? clear : "");
    std::fflush(stdout);
}

void LineEditor::Terminal::showAgain() {
    draft_.isShown = true;
    el_insertstr(line_, draft_.text.c_str());
    el_cursor(line_, draft_.cursor);
    el_set(line_, EL_REFRESH);
}

std::optional<std::string> LineEditor::Terminal::read(std::string_view prompt, const BackgroundWork& work) {
    draft_ = {};
    draft_.prompt = prompt;
    draft_.work = work.descriptor;
    for (;;) {
        int count = 0;
        draft_.wake = Wake::input;
        const char* const got = el_gets(line_, &count);
        if (draft_.wake == Wake::work) {
            Draft own = std::move(draft_); // the work may read lines of its own
            if (!work.run())
                return std::nullopt;
            draft_ = std::move(own);
            continue;
        }
        if (draft_.wake == Wake::interrupted) {
            std::puts("");
            return std::string();
        }
        if (!got || count <= 0)
            return std::nullopt;
        std::string line(got, static_cast<std::size_t>(count));
        while (!line.empty() && (line.back() == '\n' || line.back() == '\r'))
            line.pop_back();
        if (!line.empty())
            history_.add(line);
        return line;
    }
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

} // namespace drafta
