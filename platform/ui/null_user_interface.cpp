#include "platform/ui/user_interface.h"

namespace ryv {

namespace {
class NullProgress final : public Progress {
public:
    bool step(std::size_t, CStringView) override { return true; }
};
} // namespace

Answer NullUserInterface::messageBox(const MessageBoxRequest& request) {
    switch (request.buttons) {
    case MessageButtons::ok:
        return Answer::ok;
    case MessageButtons::yesNo:
        return Answer::no;
    default:
        return Answer::cancel;
    }
}

std::unique_ptr<Progress> NullUserInterface::beginProgress(int, std::size_t) {
    return std::make_unique<NullProgress>();
}

} // namespace ryv
