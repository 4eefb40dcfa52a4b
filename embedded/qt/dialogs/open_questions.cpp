#include "embedded/qt/dialogs/open_questions.h"

namespace drafta {

void OpenQuestions::closeAll() {
    const std::vector<std::function<void()>> closers = closers_;
    for (auto close = closers.rbegin(); close != closers.rend(); ++close)
        if (*close)
            (*close)();
}

OpenQuestions::Standing::Standing(OpenQuestions& questions)
    : questions_(questions), place_(questions.closers_.size()) {
    questions_.closers_.emplace_back();
    if (questions_.stands_)
        questions_.stands_(true);
}

OpenQuestions::Standing::~Standing() {
    questions_.closers_.resize(place_);
    if (questions_.stands_)
        questions_.stands_(false);
}

void OpenQuestions::Standing::closeWith(std::function<void()> close) {
    questions_.closers_[place_] = std::move(close);
}

} // namespace drafta
