// What the module does when something happens in its host. Each reactor is made and added to the host by the
// navigation manager, and takes itself off when it ends.
#pragma once

#include "platform/host/documents.h"
#include "platform/host/editor.h"

namespace ryv {

class RyvPrmNavManager;

/// Follows the host's documents.
class RyvPrmDocManagerReactor final : private DocumentObserver {
public:
    explicit RyvPrmDocManagerReactor(RyvPrmNavManager& owner);
    RyvPrmDocManagerReactor(const RyvPrmDocManagerReactor&) = delete;
    RyvPrmDocManagerReactor& operator=(const RyvPrmDocManagerReactor&) = delete;
    ~RyvPrmDocManagerReactor();

private:
    void documentCreated(DocumentId document) override;
    void documentToBeDestroyed(DocumentId document) override;
    void documentDestroyed(DocumentId document) override;
    void documentActivated(DocumentId document) override;
    void documentLockModeChanged(DocumentId document, CStringView command) override;
    void announceDrawing(DocumentId document);

    RyvPrmNavManager& owner_;
};

/// Follows quitting, saving and clean-screen mode.
class RyvPrmEditorReactor final : private EditorObserver {
public:
    using SaveComplete = void (*)(bool belongsToActiveProject);

    explicit RyvPrmEditorReactor(RyvPrmNavManager& owner);
    RyvPrmEditorReactor(const RyvPrmEditorReactor&) = delete;
    RyvPrmEditorReactor& operator=(const RyvPrmEditorReactor&) = delete;
    ~RyvPrmEditorReactor();

    /// Called after each save while a project is active; null is ignored.
    void setSaveComplete(SaveComplete callback) noexcept;

private:
    void beginQuit(bool& veto) override;
    void saveComplete(CStringView path) override;
    void systemVariableChanged(CStringView name) override;

    RyvPrmNavManager& owner_;
    SaveComplete saveComplete_ = nullptr;
    bool hiddenByCleanScreen_ = false;
};

/// Follows the host turning idle and busy, document by document.
class RyvPrmInputContextReactor final : private InputContextObserver {
public:
    using BeginIdle = void (*)();

    explicit RyvPrmInputContextReactor(RyvPrmNavManager& owner) noexcept : owner_(owner) {}
    RyvPrmInputContextReactor(const RyvPrmInputContextReactor&) = delete;
    RyvPrmInputContextReactor& operator=(const RyvPrmInputContextReactor&) = delete;
    ~RyvPrmInputContextReactor();

    /// Follows a document until it ends.
    void attach(DocumentId document);

    /// Called at the end of every begin-idle event; null is ignored.
    void setBeginIdle(BeginIdle callback) noexcept;

private:
    void beginQuiescentState(DocumentId document) override;
    void endQuiescentState(DocumentId document) override;

    RyvPrmNavManager& owner_;
    BeginIdle beginIdle_ = nullptr;
};

} // namespace ryv
