#include "programs/drafta/terminal_line.h"

#include <unistd.h>

#include <cstdio>
#include <cwchar>
#include <utility>

namespace drafta {

TerminalLine::TerminalLine(History* history) : line_(el_init("drafta", stdin, stdout, stderr)) {
    el_set(line_, EL_CLIENTDATA, this);
    el_set(line_, EL_PROMPT, currentPrompt);
    el_set(line_, EL_EDITOR, "emacs");
    el_set(line_, EL_HIST, ::history, history);
    el_set(line_, EL_GETCFN, readCharacter);
    el_source(line_, nullptr);
}

TerminalLine& TerminalLine::of(EditLine* line) {
    TerminalLine* own = nullptr;
    el_get(line, EL_CLIENTDATA, &own);
    return *own;
}

int TerminalLine::readCharacter(EditLine* line, wchar_t* character) {
    *character = L'\0';
    return of(line).nextCharacter(*character);
}

/// 1 with a character, 0 at the end of input, -1 when the reading is to be broken off.
int TerminalLine::nextCharacter(wchar_t& character) {
    for (std::mbstate_t state{};;) {
        wake_ = waitForInput(STDIN_FILENO, work_->descriptor);
        if (wake_ == Wake::interrupted || (wake_ == Wake::work && !doWork()))
            return -1;
        if (wake_ == Wake::work)
            continue;
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

/// False when no more input is wanted. What is thrown must not pass through the library, and waits.
bool TerminalLine::doWork() noexcept {
    try {
        if (work_->run()) {
            showAgain();
            return true;
        }
    } catch (...) {
        failure_ = std::current_exception();
    }
    putAside();
    return false;
}

/// Takes the line from the screen; of one that goes over several rows the last is taken.
void TerminalLine::putAside() {
    if (std::exchange(isAside_, true))
        return;
    const char* clear = nullptr;
    char name[] = "ce";
    el_get(line_, EL_GETTC, name, &clear);
    std::printf("\r%s", clear ? clear : "");
    std::fflush(stdout);
    el_set(line_, EL_PREP_TERM, 0);
}

void TerminalLine::showAgain() {
    if (!std::exchange(isAside_, false))
        return;
    el_set(line_, EL_PREP_TERM, 1);
    el_set(line_, EL_REFRESH);
}

std::optional<std::string> TerminalLine::read(std::string_view prompt, const BackgroundWork& work) {
    prompt_ = prompt;
    work_ = &work;
    isAside_ = false;
    int count = 0;
    const char* const got = el_gets(line_, &count);
    if (failure_)
        std::rethrow_exception(std::exchange(failure_, nullptr));
    if (wake_ == Wake::interrupted) {
        std::puts("");
        return std::string();
    }
    if (wake_ == Wake::work || !got || count <= 0)
        return std::nullopt;
    std::string line(got, static_cast<std::size_t>(count));
    while (!line.empty() && (line.back() == '\n' || line.back() == '\r'))
        line.pop_back();
    return line;
}

} // namespace drafta
