// Progress on a terminal: a line for each tenth of the way.
#pragma once

#include "embedded/services/text_terminal.h"
#include "platform/ui/user_interface.h"
#include "toolkit/progress_model.h"

namespace drafta {

/// Cancelled by an interrupt of the terminal.
class TextProgress final : public ryv::Progress {
public:
    TextProgress(const TextTerminal& terminal, ryv::CString title, std::size_t count);

    bool step(std::size_t done, ryv::CStringView item) override;

private:
    const TextTerminal& terminal_;
    ryv::ProgressModel model_;
    int tenthsShown_ = -1;
};

} // namespace drafta
