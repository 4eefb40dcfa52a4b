// Subfolder traces: names from the outermost subfolder inwards, joined by "/".
#pragma once

#include "base/strings.h"

namespace ryv {

/// Gives the components of a trace one after another; empty ones are skipped, so an empty view means the end.
class TraceComponents {
public:
    explicit TraceComponents(CStringView trace) noexcept : rest_(trace) {}

    CStringView next() noexcept {
        CStringView component;
        while (component.empty() && !rest_.empty()) {
            const std::size_t end = rest_.find(u'/');
            component = rest_.substr(0, end);
            rest_ = end == CStringView::npos ? CStringView() : rest_.substr(end + 1);
        }
        return component;
    }

    /// What next() has not given yet.
    CStringView rest() const noexcept { return rest_; }

private:
    CStringView rest_;
};

} // namespace ryv
