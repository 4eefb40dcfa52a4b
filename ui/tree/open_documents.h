// The drawings that are open in the host now, by path.
#pragma once

#include "platform/host/documents.h"

#include <unordered_map>

namespace ryv {

/// As they are when it is made; documents that were never saved are left out.
class OpenDocuments {
public:
    OpenDocuments();

    /// The document of a drawing, found without regard to case; none when it is not open.
    DocumentId find(CStringView drawing) const;

private:
    std::unordered_map<CString, DocumentId> byPath_; // by the folded path
};

/// The path of the current document's drawing; empty without one that has a file.
CString currentDrawing();

} // namespace ryv
