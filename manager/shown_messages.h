// Message boxes of the catalogue, filled in and shown.
#pragma once

#include "base/format.h"
#include "platform/ui/user_interface.h"

namespace ryv {

/// Numbers of a message box's text and title.
struct ShownMessage {
    int text = 0;
    int title = 0;
    MessageIcon icon = MessageIcon::error;
    MessageButtons buttons = MessageButtons::ok;
};

/// Shows a message, with the arguments of text and title filled in. Anything may have changed when it
/// returns.
Answer showMessage(const ShownMessage& message, std::initializer_list<FormatArgument> textArguments,
    std::initializer_list<FormatArgument> titleArguments = {});

/// A path as people write it on this machine.
CString shownPath(CStringView path);

} // namespace ryv
