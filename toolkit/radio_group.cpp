#include "toolkit/radio_group.h"

namespace ryv {

void RadioGroup::setChoices(Choices choices) {
    choices_ = std::move(choices);
    renewed();
}

} // namespace ryv
