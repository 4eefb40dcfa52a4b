#include "ui/dialogs/work/told_refusal.h"

#include "manager/shown_messages.h"
#include "resources/setting_message_numbers.h"

namespace ryv {

void tellRefusal(const FileLocks& locks) {
    if (!locks.refusal().empty())
        showMessage({message::settingsWorkRefused, message::settingsWorkRefusedTitle, MessageIcon::warning},
            {locks.refusal()});
}

void tellNotRead(const CString& problem) {
    showMessage({message::drawingNotRead, message::drawingNotReadTitle}, {problem});
}

} // namespace ryv
