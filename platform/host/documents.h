// The documents that are open in the host.
#pragma once

namespace ryv {

class HostDocuments {
public:
    virtual ~HostDocuments() = default;

    /// True while a document is current, so that its LISP can be called.
    virtual bool hasCurrentDocument() = 0;
};

/// No document is ever open.
class NullHostDocuments final : public HostDocuments {
public:
    bool hasCurrentDocument() override { return false; }
};

} // namespace ryv
