#include "embedded/services/task_dialog_catalogue.h"

#include "resources/task_dialog_texts.h"

namespace drafta {

static_assert(ryv::task_button::ok == ryv::UserInterface::idOk);
static_assert(ryv::task_button::cancel == ryv::UserInterface::idCancel);

bool TaskDialogCatalogue::load(ryv::CStringView id,
    const std::vector<std::pair<ryv::CString, ryv::CString>>& variables, ryv::TaskDialogRequest& request) {
    const ryv::TaskDialogText* const text = ryv::findTaskDialogText(id);
    if (!text)
        return false;
    ryv::TaskDialogRequest loaded;
    loaded.id = id;
    loaded.title = ryv::fillVariables(text->title, variables);
    loaded.instruction = ryv::fillVariables(text->instruction, variables);
    loaded.content = ryv::fillVariables(text->content, variables);
    for (const ryv::TaskDialogButtonText& button : text->buttons)
        loaded.buttons.push_back({button.id, ryv::CString(button.text)});
    loaded.defaultButton = text->defaultButton;
    loaded.variables = variables;
    request = std::move(loaded);
    return true;
}

} // namespace drafta
