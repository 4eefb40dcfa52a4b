#include "programs/drafta/line_editor.h"

#include <histedit.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <iostream>

namespace drafta {

struct LineEditor::Terminal {
    EditLine* line = nullptr;
    History* history = nullptr;
    HistEvent event{};
    std::string historyFile;
    std::string prompt;
};

namespace {

constexpr int historyLines = 1000;

char* currentPrompt(EditLine* line) {
    std::string* prompt = nullptr;
    el_get(line, EL_CLIENTDATA, &prompt);
    return prompt->data();
}

} // namespace

LineEditor::LineEditor(std::string historyFile) {
    if (isatty(STDIN_FILENO) != 1)
        return;
    terminal_ = std::make_unique<Terminal>();
    Terminal& own = *terminal_;
    own.historyFile = std::move(historyFile);
    own.line = el_init("drafta", stdin, stdout, stderr);
    own.history = history_init();
    history(own.history, &own.event, H_SETSIZE, historyLines);
    history(own.history, &own.event, H_SETUNIQUE, 1);
    history(own.history, &own.event, H_LOAD, own.historyFile.c_str());
    el_set(own.line, EL_CLIENTDATA, &own.prompt);
    el_set(own.line, EL_PROMPT, currentPrompt);
    el_set(own.line, EL_EDITOR, "emacs");
    el_set(own.line, EL_HIST, history, own.history);
    el_source(own.line, nullptr);
}

LineEditor::~LineEditor() {
    if (!terminal_)
        return;
    std::error_code ignored; // a history that cannot be kept is no reason to complain at the end
    std::filesystem::create_directories(std::filesystem::path(terminal_->historyFile).parent_path(), ignored);
    history(terminal_->history, &terminal_->event, H_SAVE, terminal_->historyFile.c_str());
    history_end(terminal_->history);
    el_end(terminal_->line);
}

std::optional<std::string> LineEditor::read(std::string_view prompt) {
    if (!terminal_) {
        std::string line;
        errno = 0;
        if (std::getline(std::cin, line) || !line.empty())
            return line;
        if (errno != EINTR)
            return std::nullopt;
        std::clearerr(stdin); // the break key, not the end
        std::cin.clear();
        return std::string();
    }
    Terminal& own = *terminal_;
    own.prompt = prompt;
    int count = 0;
    errno = 0;
    const char* const got = el_gets(own.line, &count);
    if (!got || count <= 0) {
        if (errno != EINTR)
            return std::nullopt;
        std::puts("");
        return std::string();
    }
    std::string line(got, static_cast<std::size_t>(count));
    while (!line.empty() && (line.back() == '\n' || line.back() == '\r'))
        line.pop_back();
    if (!line.empty())
        history(own.history, &own.event, H_ENTER, line.c_str());
    return line;
}

} // namespace drafta
