// What controls have in common of whose rows at most one is chosen.
#pragma once

#include "toolkit/control.h"

#include <cstddef>
#include <optional>

namespace ryv {

/// Rows are counted from 0.
class SingleChoice : public Control {
public:
    /// The chosen one; nothing until the program or the user has chosen.
    std::optional<std::size_t> chosen() const noexcept { return chosen_; }

    /// Throws std::invalid_argument for a row that is not there.
    void setChosen(std::optional<std::size_t> row);

    /// The user has chosen a row. False when the control cannot be used or has no such row.
    bool choose(std::size_t row);

protected:
    using Control::Control;

    virtual std::size_t choiceCount() const noexcept = 0;

    /// The rows are others now, of which none is chosen.
    void renewed();

private:
    std::optional<std::size_t> chosen_;
};

} // namespace ryv
