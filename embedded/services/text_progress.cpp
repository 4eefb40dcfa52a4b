#include "embedded/services/text_progress.h"

#include "toolkit/text_renderer.h"

namespace drafta {

TextProgress::TextProgress(const TextTerminal& terminal, ryv::CString title, std::size_t count)
    : terminal_(terminal), model_(std::move(title), count) {}

bool TextProgress::step(std::size_t done, ryv::CStringView item) {
    if (terminal_.isInterrupted && terminal_.isInterrupted())
        model_.cancel();
    const bool goesOn = model_.step(done, item);
    const int tenths = model_.percent() / 10;
    if (tenths > tenthsShown_)
        terminal_.print(u"\n" + ryv::TextRenderer().progress(model_));
    tenthsShown_ = std::max(tenths, tenthsShown_);
    return goesOn;
}

} // namespace drafta
