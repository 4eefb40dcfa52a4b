// The host's command line as a place to print on.
#pragma once

#include "base/strings.h"

namespace ryv {

class HostConsole {
public:
    virtual ~HostConsole() = default;

    /// Prints text as it stands; "\n" begins a new line.
    virtual void print(CStringView text) = 0;
};

/// Nobody reads what is printed.
class NullHostConsole final : public HostConsole {
public:
    void print(CStringView) override {}
};

} // namespace ryv
