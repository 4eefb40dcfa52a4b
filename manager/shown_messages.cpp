#include "manager/shown_messages.h"

#include "base/encoding.h"
#include "bridge/platform.h"
#include "resources/messages.h"

namespace ryv {

Answer showMessage(const ShownMessage& message, std::initializer_list<FormatArgument> textArguments,
    std::initializer_list<FormatArgument> titleArguments) {
    MessageBoxRequest request;
    request.message = message.text;
    request.text = format(messageText(message.text), textArguments);
    request.caption = format(messageText(message.title), titleArguments);
    request.icon = message.icon;
    request.buttons = message.buttons;
    return platform().ui->messageBox(request);
}

CString shownPath(CStringView path) {
    return nameFromBytes(platform().os.paths->toNative(path));
}

} // namespace ryv
