// The documents that are open: their drawings, their LISP, which one is current, and who is told of it.
#pragma once

#include "embedded/documents/lisp_session.h"
#include "embedded/drawings/drawing.h"
#include "platform/host/documents.h"

#include <memory>
#include <utility>
#include <vector>

namespace drafta {

class CommandLine;

/// One document.
struct Document {
    ryv::DocumentId id = ryv::DocumentId::none;
    ryv::CString name; ///< the path of its file, or "Drawing1.dwg" while it has none
    bool isNamed = false;
    std::shared_ptr<Drawing> drawing;
    std::unique_ptr<LispSession> lisp;
    int busy = 0;             ///< commands and expressions at work in it
    bool isClosing = false;   ///< its end has been announced
    bool isQuiescent = false; ///< as its observers were told last; a new document has not come to rest yet
    std::vector<ryv::InputContextObserver*> observers;
};

class Documents final : public ryv::HostDocuments {
public:
    /// What a new document needs from the host around it.
    struct Parts {
        ryv::Files* files = nullptr;
        ryv::SystemPaths* paths = nullptr;
        CommandLine* commandLine = nullptr;
        /// The file of the package's LISP, which every new document loads; empty for plain LISP.
        ryv::CString package;
        /// The LISP of a document, without the package yet; called once for each.
        std::function<std::unique_ptr<LispSession>()> makeLisp;
        /// Called when the LISP of a document is ready, before the document is told to be active.
        std::function<void(ryv::DocumentId)> loaded;
        /// Called when a document's drawing was written, with the path of the file.
        std::function<void(ryv::CStringView)> saved;
    };

    explicit Documents(Parts parts) : parts_(std::move(parts)) {}
    void setPackage(ryv::CString file) { parts_.package = std::move(file); }
    Documents(const Documents&) = delete;
    Documents& operator=(const Documents&) = delete;
    /// Closes all documents without a notice.
    ~Documents() override;

    /// Opens a drawing and makes it current; one that is open already is only made current. `none`, with the
    /// reason in `result`, when it cannot be read.
    ryv::DocumentId open(ryv::CStringView path, ryv::DrawingResult& result);

    /// Makes a document without a file and makes it current. Its drawing is a copy of the template's, or
    /// empty when the template is "" or cannot be read; `result` says so.
    ryv::DocumentId make(ryv::CStringView templateFile, ryv::DrawingResult& result);

    /// Makes a document active and current. False when there is none of that number.
    bool activate(ryv::DocumentId document);

    /// Makes a document current, without activating it, for as long as this object lives.
    class Visit {
    public:
        Visit(Documents& documents, ryv::DocumentId document) noexcept
            : documents_(documents), before_(std::exchange(documents.current_, document)) {}
        Visit(const Visit&) = delete;
        Visit& operator=(const Visit&) = delete;
        ~Visit() { documents_.current_ = documents_.find(before_) ? before_ : ryv::DocumentId::none; }

    private:
        Documents& documents_;
        ryv::DocumentId before_;
    };

    /// Tells the observers again which document is active, for one that has come later.
    void announce(ryv::DocumentId document);

    /// Closes a document without saving it. False when there is none, or when a command or LISP is at work in
    /// it: its own interpreter cannot end under its feet.
    bool close(ryv::DocumentId document);

    /// Writes a document's drawing to its file, or to another file, which is its own from then on.
    ryv::DrawingResult save(ryv::DocumentId document);
    ryv::DrawingResult saveAs(ryv::DocumentId document, ryv::CStringView path);

    Document* find(ryv::DocumentId document);
    Document* current() { return find(current_); }

    /// The document that has a file open, whatever way the path is spelled; null when there is none.
    Document* findFile(ryv::CStringView path);

    /// A command or expression begins and ends to work in a document.
    void beginBusy(ryv::DocumentId document);
    void endBusy(ryv::DocumentId document);
    void lockModeChanged(ryv::DocumentId document, ryv::CStringView command);

    /// Tells the observers of the documents in which nothing is at work any more, and nothing waits.
    void settle();

    bool hasCurrentDocument() override { return current_ != ryv::DocumentId::none; }
    ryv::DocumentId currentDocument() override { return current_; }
    ryv::DocumentId activeDocument() override { return current_; }
    std::vector<ryv::DocumentId> documents() override;
    ryv::CString fileName(ryv::DocumentId document) override;
    bool isNamed(ryv::DocumentId document) override;
    bool isQuiescent(ryv::DocumentId document) override;
    ryv::DocumentId documentOfFile(ryv::CStringView path) override;
    ryv::FileStatus renameFile(ryv::DocumentId document, ryv::CStringView newPath) override;
    void sendStringToExecute(
        ryv::DocumentId document, ryv::CStringView text, ryv::CommandStringOptions options) override;
    void executeInApplicationContext(std::function<void()> work) override;
    void add(ryv::DocumentObserver& observer) override;
    void remove(ryv::DocumentObserver& observer) override;
    void attach(ryv::DocumentId document, ryv::InputContextObserver& observer) override;
    void detach(ryv::InputContextObserver& observer) override;

private:
    ryv::DocumentId admit(std::shared_ptr<Drawing> drawing, ryv::CString name, bool isNamed);
    ryv::CString identityOf(ryv::CStringView path);
    void afterSave(Document& document);
    template <class Notice>
    void tell(const Notice& notice);
    template <class Notice>
    void tellContext(ryv::DocumentId document, const Notice& notice);

    Parts parts_;
    std::vector<std::unique_ptr<Document>> documents_;
    std::vector<ryv::DocumentId> recent_; // the order of activating, the current one last
    std::vector<ryv::DocumentObserver*> observers_;
    ryv::DocumentId current_ = ryv::DocumentId::none;
    std::int32_t lastId_ = 0;
    int unnamed_ = 0;
};

} // namespace drafta
