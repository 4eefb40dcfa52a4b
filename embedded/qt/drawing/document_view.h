// The drawing of a document on screen.
#pragma once

#include "embedded/qt/drawing/drawing_canvas.h"
#include "platform/host/documents.h"

namespace drafta {

class Documents;

/// Follows the document: when its commands have come to rest, and when somebody calls refresh(), what was
/// changed is drawn anew. A view that nobody sees waits with that until it is shown. The documents outlive
/// it; the document may be gone at any time, which leaves the view empty.
class DocumentView : public DrawingCanvas, private ryv::InputContextObserver {
public:
    DocumentView(Documents& documents, ryv::DocumentId document, QWidget* parent);
    ~DocumentView() override;

    /// Costs nothing when the drawing is as it was.
    void refresh();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void beginQuiescentState(ryv::DocumentId) override { refresh(); }

    Documents& documents_;
    ryv::DocumentId document_;
    std::optional<std::size_t> shown_; // revision of the content that is shown
};

/// For those who need no more than a widget; owned by `parent`.
QWidget* makeDocumentView(Documents& documents, ryv::DocumentId document, QWidget* parent);

/// refresh() of a widget that makeDocumentView() has made; nothing for another one.
void refreshDocumentView(QWidget& view);

} // namespace drafta
