#include "programs/kqp/documents/generate.h"

namespace kqp {

std::optional<std::string> documentOf(std::string_view kind) {
    if (kind == "man")
        return manPage();
    if (kind == "bash")
        return bashCompletion();
    if (kind == "zsh")
        return zshCompletion();
    return std::nullopt;
}

} // namespace kqp
