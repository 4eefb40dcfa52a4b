// How the program ends.
#pragma once

#include <cstdio>
#include <string>

namespace drafta {

inline constexpr int done = 0;
inline constexpr int lispError = 1;
inline constexpr int inputError = 2;
inline constexpr int signalError = 128; ///< and the number of the signal, as shells have it

/// Says on standard error why the program does not do what it was asked for; `code` again.
inline int complain(const std::string& problem, int code = inputError) {
    std::fprintf(stderr, "drafta: %s\n", problem.c_str());
    return code;
}

} // namespace drafta
