#include "embedded/services/task_dialog_catalogue.h"

#include "base/text.h"
#include "embedded/services/task_dialog_file.h"
#include "resources/task_buttons.h"
#include "resources/task_dialog_variables.h"
#include "siblings/file_content.h"

#include <algorithm>

namespace drafta {

static_assert(ryv::task_button::ok == ryv::UserInterface::idOk);
static_assert(ryv::task_button::cancel == ryv::UserInterface::idCancel);

std::vector<ryv::TaskDialogRequest> TaskDialogCatalogue::read() {
    std::vector<ryv::TaskDialogRequest> dialogs;
    ryv::ByteBuffer bytes;
    ryv::Fingerprint fingerprint;
    const ryv::FileStatus status = ryv::readWholeFile(files_, path_, bytes, fingerprint);
    ryv::CString problem;
    if (!status.ok())
        problem = ryv::fromAscii(describe(status.error));
    else
        parseTaskDialogs(bytes.view(), dialogs, problem);
    if (!problem.empty())
        warn_(path_ + u": " + problem + u"; no task dialog can be shown");
    return dialogs;
}

const std::vector<ryv::TaskDialogRequest>& TaskDialogCatalogue::dialogs() {
    if (!dialogs_)
        dialogs_ = read();
    return *dialogs_;
}

bool TaskDialogCatalogue::load(ryv::CStringView id,
    const std::vector<std::pair<ryv::CString, ryv::CString>>& variables, ryv::TaskDialogRequest& request) {
    const auto hit = std::find_if(
        dialogs().begin(), dialogs().end(), [id](const auto& dialog) { return dialog.id == id; });
    if (hit == dialogs().end())
        return false;
    request = *hit;
    for (ryv::CString* const text : {&request.title, &request.instruction, &request.content})
        *text = ryv::fillVariables(*text, variables);
    request.variables = variables;
    return true;
}

} // namespace drafta
