// One of several choices, all of them shown.
#pragma once

#include "toolkit/choice.h"
#include "toolkit/single_choice.h"

namespace ryv {

class RadioGroup : public SingleChoice {
public:
    explicit RadioGroup(int id) noexcept : SingleChoice(ControlKind::radio, id) {}

    const Choices& choices() const noexcept { return choices_; }
    /// None of the new choices is the chosen one.
    void setChoices(Choices choices);

protected:
    std::size_t choiceCount() const noexcept override { return choices_.size(); }

private:
    Choices choices_;
};

} // namespace ryv
