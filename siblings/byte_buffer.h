// An owned block of bytes for content that is about to be read: its memory is not filled beforehand.
#pragma once

#include <cstddef>
#include <memory>
#include <new>
#include <span>
#include <string_view>
#include <utility>

namespace ryv {

/// Owns its bytes; moves, never copies. A buffer moved from is empty.
class ByteBuffer {
public:
    ByteBuffer() = default;
    ByteBuffer(ByteBuffer&& other) noexcept
        : bytes_(std::move(other.bytes_)), size_(std::exchange(other.size_, 0)) {}
    ByteBuffer& operator=(ByteBuffer&& other) noexcept {
        bytes_ = std::move(other.bytes_);
        size_ = std::exchange(other.size_, 0);
        return *this;
    }

    /// Drops the old content and makes room for `size` bytes of any value. False, and empty, when there is no
    /// memory for them.
    [[nodiscard]] bool allocate(std::size_t size) {
        clear();
        bytes_.reset(new (std::nothrow) char[size]);
        size_ = bytes_ ? size : 0;
        return bytes_ != nullptr;
    }

    /// Keeps the first `size` bytes only; at most size().
    void shrink(std::size_t size) noexcept { size_ = size < size_ ? size : size_; }

    void clear() noexcept {
        bytes_.reset();
        size_ = 0;
    }

    char* data() noexcept { return bytes_.get(); }
    std::size_t size() const noexcept { return size_; }
    bool empty() const noexcept { return size_ == 0; }
    std::span<char> span() noexcept { return {bytes_.get(), size_}; }

    /// The bytes; valid until the buffer is changed or destroyed, also after it was moved to another buffer.
    std::string_view view() const noexcept { return {bytes_.get(), size_}; }

private:
    std::unique_ptr<char[]> bytes_;
    std::size_t size_ = 0;
};

} // namespace ryv
