#include "bridge/platform.h"
#include "host/nav_manager.h"
#include "host/palette.h"
#include "host/reactors.h"
#include "manager/last_project_list.h"
#include "manager/project_manager.h"
#include "manager/startup_loader.h"

namespace ryv {

RyvPrmDocManagerReactor::RyvPrmDocManagerReactor(RyvPrmNavManager& owner) : owner_(owner) {
    platform().host.documents->add(*this);
}

RyvPrmDocManagerReactor::~RyvPrmDocManagerReactor() {
    platform().host.documents->remove(*this);
}

void RyvPrmDocManagerReactor::documentCreated(DocumentId) {
    platform().services.menuHook->remove();
}

/// Deliberate: nothing is made of the answer, but a host may settle which document is current only when it is
/// asked, and the package's other modules were built against a host that was asked here.
void RyvPrmDocManagerReactor::documentToBeDestroyed(DocumentId) {
    HostDocuments& documents = *platform().host.documents;
    if (documents.documents().size() == 1)
        static_cast<void>(documents.currentDocument());
}

void RyvPrmDocManagerReactor::documentDestroyed(DocumentId) {
    if (RyvPrmPalette* const palette = owner_.firstPalette())
        palette->tree().BoldNewActiveDrawingAndSubfolders({});
    if (platform().host.documents->documents().size() <= 1 && owner_.inputContextReactor())
        owner_.tellBusyListeners(1);
}

void RyvPrmDocManagerReactor::documentLockModeChanged(DocumentId document, CStringView command) {
    if (command.find(u"SAVEAS") != CStringView::npos)
        announceDrawing(document);
}

void RyvPrmDocManagerReactor::documentActivated(DocumentId document) {
    loadLastProjects(readLastProjects);
    if (document != DocumentId::none)
        announceDrawing(document);
    if (owner_.inputContextReactor())
        owner_.tellBusyListeners(platform().host.documents->isQuiescent(document) ? 0 : 1);
}

void RyvPrmDocManagerReactor::announceDrawing(DocumentId document) {
    RyvPrmProjectManager* const manager = owner_.projectManager();
    const CString drawing = platform().host.documents->fileName(document);
    if (!manager || drawing.empty()) // what ran before may have closed the document
        return;
    manager->notifyLispKQ_MAndRemove(drawing);
    manager->drawingActivated(drawing);
}

} // namespace ryv
