// The documents that are open in the host, and what happens to them.
#pragma once

#include "base/strings.h"
#include "platform/os/files.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

namespace ryv {

/// A document as long as the host runs; a number is never given twice, and LISP code may hold it.
enum class DocumentId : std::int32_t { none = 0 };

/// Hears of documents. The host calls it on the main thread; what it does not want to hear it does not
/// override. During a notice further documents may be opened and closed, which is told at once.
class DocumentObserver {
public:
    virtual void documentCreated(DocumentId) {}
    /// The document is still there; nothing may stop its end.
    virtual void documentToBeDestroyed(DocumentId) {}
    virtual void documentDestroyed(DocumentId) {}
    /// `document` is current now; none when the last one was closed.
    virtual void documentActivated(DocumentId) {}
    /// A command begins or ends to work in the document; `command` is its global name.
    virtual void documentLockModeChanged(DocumentId, CStringView /*command*/) {}

protected:
    ~DocumentObserver() = default;
};

/// Hears when documents turn idle and busy.
class InputContextObserver {
public:
    virtual void beginQuiescentState(DocumentId) {}
    virtual void endQuiescentState(DocumentId) {}

protected:
    ~InputContextObserver() = default;
};

/// How a string is handed to a document's command input.
struct CommandStringOptions {
    bool activate = true;        ///< the document is made active first
    bool wrapUpInactive = false; ///< an inactive document's command is ended first
    bool echo = false;           ///< what is run is shown on the command line
};

class HostDocuments {
public:
    virtual ~HostDocuments() = default;

    /// True while a document is current, so that its LISP can be called.
    virtual bool hasCurrentDocument() = 0;

    /// The document that commands and LISP work in now, and the one that the user sees in front; they differ
    /// only while code runs in a document that was not activated.
    virtual DocumentId currentDocument() = 0;
    virtual DocumentId activeDocument() = 0;

    /// All open documents in the order of opening.
    virtual std::vector<DocumentId> documents() = 0;

    /// The path of the document's drawing, or for one that has never been saved the name that it is shown
    /// under; empty when there is no such document.
    virtual CString fileName(DocumentId document) = 0;

    /// True when the document's drawing has a file of its own.
    virtual bool isNamed(DocumentId document) = 0;

    /// True when no command, no LISP and no dialog is at work in the document and nothing is queued for it;
    /// false when there is no such document.
    virtual bool isQuiescent(DocumentId document) = 0;

    /// The document that has a file open, whatever way its path is spelled; none when there is none.
    virtual DocumentId documentOfFile(CStringView path) = 0;

    /// Gives the file of a document another name in its folder; the document goes on under it, with all that
    /// is not saved yet. Never replaces a file (`exists`). `missing` when there is no such document or it has
    /// no file.
    virtual FileStatus renameFile(DocumentId document, CStringView newPath) = 0;

    /// Queues `text` for the document's command input, as if it were typed; it is run once the host is idle.
    /// A "\r" or "\n" ends a line. Nothing happens when there is no such document.
    virtual void sendStringToExecute(DocumentId document, CStringView text, CommandStringOptions options) = 0;

    /// Runs `work` outside of all documents, once the host's message loop is reached again.
    virtual void executeInApplicationContext(std::function<void()> work) = 0;

    /// Observers are not owned, hear the newest first, and take themselves off before they end.
    virtual void add(DocumentObserver& observer) = 0;
    virtual void remove(DocumentObserver& observer) = 0;

    /// Attaching twice to one document counts once; a document that ends detaches all.
    virtual void attach(DocumentId document, InputContextObserver& observer) = 0;
    virtual void detach(InputContextObserver& observer) = 0;
};

/// No document is ever open, and nothing is run.
class NullHostDocuments : public HostDocuments {
public:
    bool hasCurrentDocument() override { return false; }
    DocumentId currentDocument() override { return DocumentId::none; }
    DocumentId activeDocument() override { return DocumentId::none; }
    std::vector<DocumentId> documents() override { return {}; }
    CString fileName(DocumentId) override { return {}; }
    bool isNamed(DocumentId) override { return false; }
    bool isQuiescent(DocumentId) override { return false; }
    DocumentId documentOfFile(CStringView) override { return DocumentId::none; }
    FileStatus renameFile(DocumentId, CStringView) override { return {FileError::missing, 0}; }
    void sendStringToExecute(DocumentId, CStringView, CommandStringOptions) override {}
    void executeInApplicationContext(std::function<void()>) override {}
    void add(DocumentObserver&) override {}
    void remove(DocumentObserver&) override {}
    void attach(DocumentId, InputContextObserver&) override {}
    void detach(InputContextObserver&) override {}
};

} // namespace ryv
