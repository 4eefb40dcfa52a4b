#include "embedded/documents/drawings_port.h"

#include "embedded/drawings/drawing_view.h"

namespace drafta {

std::unique_ptr<ryv::DrawingDatabase> DrawingsPort::open(ryv::CStringView path, ryv::DrawingResult& result) {
    result = {};
    if (const Document* const document = documents_->findFile(path))
        return std::make_unique<DrawingView>(document->drawing);
    std::shared_ptr<Drawing> drawing = Drawing::load(*files_, path, result);
    return drawing ? std::make_unique<DrawingView>(std::move(drawing)) : nullptr;
}

std::unique_ptr<ryv::DrawingDatabase> DrawingsPort::ofDocument(ryv::DocumentId id) {
    const Document* const document = documents_->find(id);
    return document ? std::make_unique<DrawingView>(document->drawing) : nullptr;
}

std::unique_ptr<ryv::DrawingDatabase> DrawingsPort::byNumber(std::int32_t number) {
    return ofDocument(ryv::DocumentId(number));
}

} // namespace drafta
