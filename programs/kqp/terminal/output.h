// A buffered way to one file descriptor that remembers the first failure, so that writers need not look after
// every piece.
#pragma once

#include <string>
#include <string_view>

namespace kqp {

class Output {
public:
    /// The descriptor stays the caller's and outlives the object. What is still in the buffer when the object
    /// goes is lost: call finish().
    explicit Output(int descriptor) : descriptor_(descriptor) {}
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    /// Appends bytes. After a failure nothing more is written.
    Output& write(std::string_view bytes);

    /// Passes everything on to the system; false when that, or any write before it, failed.
    bool finish();

    /// Notes a failure that showed otherwise than by a write. `error` is the system's number for it.
    void fail(int error) noexcept {
        if (error_ == 0)
            error_ = error;
    }

    /// The system's number for the first failure, 0 for none.
    int error() const noexcept { return error_; }

    int descriptor() const noexcept { return descriptor_; }

private:
    void flush();

    int descriptor_;
    int error_ = 0;
    std::string buffer_;
};

} // namespace kqp
