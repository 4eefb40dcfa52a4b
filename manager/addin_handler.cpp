#include "manager/addin_handler.h"

namespace ryv {

// NOLINTNEXTLINE(bugprone-reserved-identifier)
void IRyvAddinHandler::__RemoveAllEventHandlers(const void* receiver) {
    onSynchronize.removeAll(receiver);
    onSynchronizeCompleted.removeAll(receiver);
    onQueryOZMFiles.removeAll(receiver);
    onRelinkProject.removeAll(receiver);
    onQueryNonActiveProjOZMFiles.removeAll(receiver);
}

RyvOZMAddinHandler* RyvOZMAddinHandler::GetInstance() {
    static RyvOZMAddinHandler instance;
    return &instance;
}

bool RyvOZMAddinHandler::synchronize() {
    bool result = false;
    onSynchronize(result);
    return result;
}

} // namespace ryv
