// Standard output; knows whether the cursor is at the begin of a line.
#pragma once

#include <cstdio>
#include <functional>
#include <string_view>

namespace drafta {

class StandardOutput {
public:
    /// `makeRoom` is called before anything is printed.
    StandardOutput(bool keepsBlankLines, std::function<void()> makeRoom)
        : keepsBlankLines_(keepsBlankLines), makeRoom_(std::move(makeRoom)) {}

    /// Texts of the host begin with a line feed, which only a console that is not at the begin of a line
    /// needs.
    void print(std::string_view text) {
        if (!keepsBlankLines_ && atLineBegin_ && text.starts_with('\n'))
            text.remove_prefix(1);
        if (text.empty())
            return;
        makeRoom_();
        std::fwrite(text.data(), 1, text.size(), stdout);
        atLineBegin_ = text.back() == '\n';
        std::fflush(stdout);
    }
    void beginLine() {
        if (!atLineBegin_)
            print("\n");
    }
    /// A line was typed, and its end with it.
    void typed() { atLineBegin_ = true; }

private:
    bool keepsBlankLines_;
    std::function<void()> makeRoom_;
    bool atLineBegin_ = true;
};

} // namespace drafta
