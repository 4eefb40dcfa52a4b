// The host's documents as one module has them.
#pragma once

#include "embedded/modules/left_behind.h"
#include "embedded/modules/module_work.h"
#include "platform/host/documents.h"

namespace drafta {

class ModuleDocuments final : public ryv::HostDocuments {
public:
    explicit ModuleDocuments(ryv::HostDocuments& documents) noexcept : documents_(documents) {}

    /// Takes observers off, and forgets the work that has not begun.
    void drop();

    bool hasCurrentDocument() override { return documents_.hasCurrentDocument(); }
    ryv::DocumentId currentDocument() override { return documents_.currentDocument(); }
    ryv::DocumentId activeDocument() override { return documents_.activeDocument(); }
    std::vector<ryv::DocumentId> documents() override { return documents_.documents(); }
    ryv::CString fileName(ryv::DocumentId document) override { return documents_.fileName(document); }
    bool isNamed(ryv::DocumentId document) override { return documents_.isNamed(document); }
    bool isQuiescent(ryv::DocumentId document) override { return documents_.isQuiescent(document); }
    ryv::DocumentId documentOfFile(ryv::CStringView path) override { return documents_.documentOfFile(path); }
    ryv::FileStatus renameFile(ryv::DocumentId document, ryv::CStringView newPath) override {
        return documents_.renameFile(document, newPath);
    }
    void sendStringToExecute(
        ryv::DocumentId document, ryv::CStringView text, ryv::CommandStringOptions options) override {
        documents_.sendStringToExecute(document, text, options);
    }
    void executeInApplicationContext(std::function<void()> work) override;
    void add(ryv::DocumentObserver& observer) override;
    void remove(ryv::DocumentObserver& observer) override;
    void attach(ryv::DocumentId document, ryv::InputContextObserver& observer) override;
    void detach(ryv::InputContextObserver& observer) override;

private:
    ryv::HostDocuments& documents_;
    ModuleWork work_;
    LeftBehind<ryv::DocumentObserver*> observers_;
    LeftBehind<ryv::InputContextObserver*> inputObservers_;
};

} // namespace drafta
