// The terminal as those see it who ask questions on it.
#pragma once

#include "base/strings.h"

#include <functional>
#include <optional>

namespace drafta {

/// Where texts go and lines come from.
struct TextTerminal {
    std::function<void(ryv::CStringView)> print;
    /// Messages about questions that nobody answered.
    std::function<void(ryv::CStringView)> warn;
    /// A line from the person in front of the terminal; nothing when nobody is there, or at the end of input.
    std::function<std::optional<ryv::CString>(ryv::CStringView prompt)> ask;
    /// A path as people write it, as module text.
    std::function<ryv::CString(ryv::CStringView)> toModulePath;
    /// The other way round, for showing.
    std::function<ryv::CString(ryv::CStringView)> shownPath;
    /// Whether there is a file at a module path.
    std::function<bool(ryv::CStringView)> exists;
    /// Whether the person wants what runs to end; unset, never.
    std::function<bool()> isInterrupted = nullptr;
};

} // namespace drafta
