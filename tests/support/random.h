// Chance that is alike everywhere: the standard's distributions differ between libraries, its generators do
// not.
#pragma once

#include "base/strings.h"

#include <cstdint>
#include <initializer_list>
#include <random>

namespace ryv::test {

class Random {
public:
    explicit Random(std::uint64_t seed) : generator_(seed) {}

    /// 0 up to, not including, `limit`; `limit` is at least 1.
    std::size_t below(std::size_t limit) { return static_cast<std::size_t>((generator_() >> 11) % limit); }

    /// True once in `times` on average.
    bool oneIn(std::size_t times) { return below(times) == 0; }

    template <class Container>
    const auto& pick(const Container& values) {
        return *(values.begin() + static_cast<std::ptrdiff_t>(below(values.size())));
    }
    CStringView pick(std::initializer_list<CStringView> values) {
        return *(values.begin() + static_cast<std::ptrdiff_t>(below(values.size())));
    }

private:
    std::mt19937_64 generator_;
};

} // namespace ryv::test
