// Drawings for the module and for LISP: those in documents through their documents, all others from their
// files.
#pragma once

#include "embedded/documents/documents.h"
#include "platform/host/drawings.h"

namespace drafta {

class DrawingsPort final : public ryv::HostDrawings {
public:
    /// Both outlive the port.
    DrawingsPort(Documents& documents, ryv::Files& files) noexcept : documents_(&documents), files_(&files) {}

    std::unique_ptr<ryv::DrawingDatabase> open(ryv::CStringView path, ryv::DrawingResult& result) override;
    std::unique_ptr<ryv::DrawingDatabase> ofDocument(ryv::DocumentId document) override;
    std::unique_ptr<ryv::DrawingDatabase> byNumber(std::int32_t number) override;

private:
    Documents* documents_;
    ryv::Files* files_;
};

} // namespace drafta
