#include "programs/drafta/piped_lines.h"

#include <array>
#include <cerrno>
#include <unistd.h>

namespace drafta {

std::optional<std::string> PipedLines::take() {
    const std::size_t end = text_.find('\n', seen_);
    seen_ = text_.size();
    if (end == std::string::npos && (!isAtEnd_ || text_.empty()))
        return std::nullopt;
    std::string line = text_.substr(0, end);
    text_.erase(0, end == std::string::npos ? end : end + 1);
    seen_ = 0;
    return line;
}

void PipedLines::fill() {
    std::array<char, 4096> bytes;
    const ssize_t count = ::read(descriptor_, bytes.data(), bytes.size());
    if (count > 0)
        text_.append(bytes.data(), static_cast<std::size_t>(count));
    else
        isAtEnd_ = count == 0 || (errno != EINTR && errno != EAGAIN);
}

std::optional<std::string> PipedLines::read(const BackgroundWork& work) {
    for (;;) {
        if (std::optional<std::string> line = take())
            return line;
        if (isAtEnd_)
            return std::nullopt;
        switch (waitForInput(descriptor_, work.descriptor)) {
        case Wake::input:
            fill();
            break;
        case Wake::work:
            if (!work.run())
                return std::nullopt;
            break;
        case Wake::interrupted:
            return std::string();
        }
    }
}

} // namespace drafta
