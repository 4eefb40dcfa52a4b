// Lines from a pipe or a file.
#pragma once

#include "programs/drafta/background_work.h"

#include <optional>
#include <string>

namespace drafta {

class PipedLines {
public:
    /// The descriptor is not owned.
    explicit PipedLines(int descriptor) noexcept : descriptor_(descriptor) {}

    /// The next line without its end; nothing at the end of input, or when the work that came meanwhile wants
    /// no more. Empty when a signal broke the wait off. Work may read lines itself.
    std::optional<std::string> read(const BackgroundWork& work);

private:
    std::optional<std::string> take();
    void fill();

    int descriptor_;
    std::string text_;     // read and not yet given out
    std::size_t seen_ = 0; // no line ends before here
    bool isAtEnd_ = false;
};

} // namespace drafta
