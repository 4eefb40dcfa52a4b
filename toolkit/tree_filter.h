// Which labels match what the user looks for.
#pragma once

#include "base/strings.h"

namespace ryv {

/// A text that has to occur anywhere in a label, without regard to case. The empty text occurs in every
/// label.
class TreeFilter {
public:
    TreeFilter() = default;
    explicit TreeFilter(CString text);

    bool isActive() const noexcept { return !text_.empty(); }
    const CString& text() const noexcept { return text_; }
    bool matches(CStringView label) const noexcept;

private:
    CString text_;
    CString upper_;
};

} // namespace ryv
