#include "ui/tree/open_documents.h"

#include "base/fold.h"
#include "base/text.h"
#include "bridge/platform.h"

namespace ryv {

OpenDocuments::OpenDocuments() {
    HostDocuments& documents = *platform().host.documents;
    for (const DocumentId id : documents.documents())
        if (documents.isNamed(id))
            byPath_.emplace(toUpper(replaceAll(documents.fileName(id), u'/', u'\\')), id);
}

DocumentId OpenDocuments::find(CStringView drawing) const {
    const auto hit = byPath_.find(toUpper(drawing));
    return hit == byPath_.end() ? DocumentId::none : hit->second;
}

CString currentDrawing() {
    HostDocuments& documents = *platform().host.documents;
    const DocumentId id = documents.currentDocument();
    return documents.isNamed(id) ? replaceAll(documents.fileName(id), u'/', u'\\') : CString();
}

} // namespace ryv
