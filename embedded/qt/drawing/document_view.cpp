#include "embedded/qt/drawing/document_view.h"
#include "base/paths.h"
#include "embedded/documents/documents.h"
#include "embedded/qt/qt_text.h"

namespace drafta {

DocumentView::DocumentView(Documents& documents, ryv::DocumentId document, QWidget* parent)
    : DrawingCanvas(parent), documents_(documents), document_(document) {
    documents_.attach(document_, *this);
    refresh();
}

DocumentView::~DocumentView() {
    documents_.detach(*this);
}

void DocumentView::refresh() {
    const Document* const document = documents_.find(document_);
    if (!document) {
        shown_.reset();
        return setDrawing(nullptr);
    }
    setAccessibleName(tr("Drawing %1").arg(toQt(ryv::paths::findFileName(ryv::CStringView(document->name)))));
    const DrawingContent& content = document->drawing->content();
    if (shown_ == content.revision() || !isVisible())
        return;
    replaceDrawing(std::make_shared<const DisplayList>(makeDisplayList(content)));
    shown_ = content.revision();
}

void DocumentView::showEvent(QShowEvent* event) {
    DrawingCanvas::showEvent(event);
    refresh();
}

QWidget* makeDocumentView(Documents& documents, ryv::DocumentId document, QWidget* parent) {
    return new DocumentView(documents, document, parent);
}

void refreshDocumentView(QWidget& view) {
    if (auto* const document = dynamic_cast<DocumentView*>(&view))
        document->refresh();
}

} // namespace drafta
