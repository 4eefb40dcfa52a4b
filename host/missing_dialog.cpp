#include "host/missing_dialog.h"

#include "base/format.h"
#include "bridge/platform.h"
#include "resources/message_numbers.h"
#include "resources/messages.h"

namespace ryv {

void tellDialogMissing(CStringView dialog) {
    platform().host.console->print(u"\n" + format(messageText(message::dialogMissing), {dialog}) + u"\n");
}

} // namespace ryv
