#include "toolkit/single_choice.h"

#include <stdexcept>

namespace ryv {

void SingleChoice::setChosen(std::optional<std::size_t> row) {
    if (row && *row >= choiceCount())
        throw std::invalid_argument("row outside the control");
    set(chosen_, row);
}

bool SingleChoice::choose(std::size_t row) {
    if (!isUsable() || row >= choiceCount())
        return false;
    edit(chosen_, std::optional(row));
    return true;
}

void SingleChoice::renewed() {
    chosen_.reset();
    notify();
}

} // namespace ryv
