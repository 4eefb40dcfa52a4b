// A descriptor of the system, closed when its owner goes.
#pragma once

#include <unistd.h>
#include <utility>

namespace drafta {

/// Owns a descriptor, or none (-1).
class Descriptor {
public:
    Descriptor() = default;
    explicit Descriptor(int number) noexcept : number_(number) {}
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(number_, other.number_);
        other.reset();
        return *this;
    }
    ~Descriptor() { reset(); }

    int get() const noexcept { return number_; }
    bool isOpen() const noexcept { return number_ != -1; }

    void reset() noexcept {
        if (const int number = std::exchange(number_, -1); number != -1)
            ::close(number);
    }

private:
    int number_ = -1;
};

} // namespace drafta
