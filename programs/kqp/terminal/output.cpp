#include "programs/kqp/terminal/output.h"

#include <cerrno>
#include <unistd.h>

namespace kqp {

namespace {
constexpr std::size_t flushAt = 65536; // bytes
}

Output& Output::write(std::string_view bytes) {
    if (error_ != 0)
        return *this;
    buffer_.append(bytes);
    if (buffer_.size() >= flushAt)
        flush();
    return *this;
}

bool Output::finish() {
    flush();
    return error_ == 0;
}

void Output::flush() {
    std::string_view rest = buffer_;
    while (!rest.empty() && error_ == 0) {
        const ssize_t count = ::write(descriptor_, rest.data(), rest.size());
        if (count >= 0)
            rest.remove_prefix(static_cast<std::size_t>(count));
        else if (errno != EINTR)
            error_ = errno;
    }
    buffer_.clear();
}

} // namespace kqp
