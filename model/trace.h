// Subfolder traces: names from the outermost subfolder inwards, joined by "/".
#pragma once

#include "base/strings.h"
#include "base/text.h"

#include <algorithm>

namespace ryv {

/// Gives the components of a trace one after another; empty ones are skipped, so an empty view means the end.
class TraceComponents {
public:
    explicit TraceComponents(CStringView trace) noexcept : rest_(trace) {}

    CStringView next() noexcept {
        CStringView component;
        while (component.empty() && !rest_.empty()) {
            const std::size_t end = findUnit(rest_, u'/');
            component = {rest_.data(), end};
            rest_.remove_prefix(std::min(end + 1, rest_.size()));
        }
        return component;
    }

    /// What next() has not given yet.
    CStringView rest() const noexcept { return rest_; }

private:
    CStringView rest_;
};

} // namespace ryv
