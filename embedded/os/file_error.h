// The system's error numbers in the words of the files port.
#pragma once

#include "platform/os/files.h"

#include <cerrno>

namespace drafta {

/// The kind of failure that a value of errno stands for, with the number itself; 0 is success.
ryv::FileStatus statusOf(int systemCode) noexcept;

/// The status of a system call that has just failed.
ryv::FileStatus lastFailure() noexcept;

/// Makes a system call that answers -1 on failure, again and again while a signal interrupts it.
template <class Call>
auto uninterrupted(Call call) {
    for (;;)
        if (const auto result = call(); result != -1 || errno != EINTR)
            return result;
}

} // namespace drafta
