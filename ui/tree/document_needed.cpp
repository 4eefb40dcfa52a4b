#include "ui/tree/document_needed.h"

#include "bridge/platform.h"
#include "resources/message_numbers.h"
#include "resources/messages.h"
#include "ui/tree/project_tree.h"

namespace ryv {

bool hasDocumentOrTells(CProjectTree& tree) {
    const bool hasDocument = platform().host.documents->hasCurrentDocument();
    if (!hasDocument)
        tree.notice().tell(CString(messageText(message::workNeedsDrawing)));
    return hasDocument;
}

} // namespace ryv
