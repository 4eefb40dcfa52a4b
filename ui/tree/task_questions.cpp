#include "ui/tree/task_questions.h"

#include "bridge/platform.h"

namespace ryv {

int askTask(CStringView id, const std::vector<std::pair<CString, CString>>& variables) {
    TaskDialogRequest request;
    if (!platform().services.taskDialogs->load(id, variables, request))
        return UserInterface::idCancel;
    return platform().ui->taskDialog(request);
}

} // namespace ryv
