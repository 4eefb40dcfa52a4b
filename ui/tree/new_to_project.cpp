#include "ui/tree/new_to_project.h"

#include "base/paths.h"
#include "manager/shown_messages.h"
#include "model/project.h"
#include "resources/message_numbers.h"

namespace ryv {

bool isNewToProject(const RyvPrmProject& project, const CString& drawing) {
    if (!project.isFileInProject(drawing))
        return true;
    showMessage({message::drawingIsListed, message::commandRefusedTitle},
        {paths::findFileName(drawing), paths::titleOf(project.getProjectID())});
    return false;
}

} // namespace ryv
