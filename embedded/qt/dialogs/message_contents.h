// What the windows of message boxes and task dialogs show.
#pragma once

#include "embedded/qt/dialogs/question_window.h"

namespace drafta {

/// The numbers of the buttons are the answers. Closed, it answers as the null object of the port does.
QuestionContent contentOf(const ryv::MessageBoxRequest& request);

/// Buttons with numbers from 1000 on say what they do, and stand below each other.
QuestionContent contentOf(const ryv::TaskDialogRequest& request);

} // namespace drafta
