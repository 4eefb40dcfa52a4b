// Documents that a test opens, activates, keeps busy and closes, and what was sent to them.
#pragma once

#include "base/fold.h"
#include "bridge/platform.h"
#include "platform/host/documents.h"
#include "tests/support/scripted_observers.h"

#include <algorithm>
#include <deque>
#include <map>
#include <utility>

namespace ryv::test {

struct SentString {
    DocumentId document = DocumentId::none;
    CString text;
    CommandStringOptions options;
};

class ScriptedDocuments final : public NullHostDocuments {
public:
    struct Document {
        DocumentId id = DocumentId::none;
        CString name;
        bool named = true;
        bool quiescent = true;
    };

    /// A document is current. Setting it without having opened any makes one of its own.
    bool open = false;
    /// What was sent to documents, in order.
    std::vector<SentString> sent;
    /// Runs while the next string is sent.
    std::function<void()> meanwhile;

    /// Opens a document and makes it current; observers are told of both.
    DocumentId openDocument(CStringView name, bool named = true) {
        const DocumentId id = insert(name, named);
        observers_.tell([id](DocumentObserver& each) { each.documentCreated(id); });
        activate(id);
        return id;
    }
    /// Makes a document current, or none of them.
    void activate(DocumentId id) {
        open = id != DocumentId::none;
        current_ = id;
        observers_.tell([id](DocumentObserver& each) { each.documentActivated(id); });
    }
    /// Closes a document; when it was current, the newest of the others becomes so.
    void closeDocument(DocumentId id) {
        observers_.tell([id](DocumentObserver& each) { each.documentToBeDestroyed(id); });
        std::erase_if(documents_, [id](const Document& each) { return each.id == id; });
        open = open && !documents_.empty();
        inputs_.erase(id);
        observers_.tell([id](DocumentObserver& each) { each.documentDestroyed(id); });
        if (current_ == id)
            activate(documents_.empty() ? DocumentId::none : documents_.back().id);
    }
    /// Makes a document idle or busy; observers are told when that changes it.
    void setQuiescent(DocumentId id, bool quiescent) {
        Document* const document = find(id);
        if (!document || std::exchange(document->quiescent, quiescent) == quiescent)
            return;
        // A copy, because the document may be closed meanwhile.
        ScriptedObservers<InputContextObserver> observers = inputs_[id];
        observers.tell([&](InputContextObserver& each) {
            if (inputs_[id].has(each))
                quiescent ? each.beginQuiescentState(id) : each.endQuiescentState(id);
        });
    }
    /// Gives a document's drawing another file.
    void rename(DocumentId id, CStringView name) { find(id)->name = name; }
    void lockModeChanged(DocumentId id, CStringView command) {
        observers_.tell([&](DocumentObserver& each) { each.documentLockModeChanged(id, command); });
    }
    /// Runs what waits for the application context, also what is added meanwhile; how many that were.
    std::size_t runApplicationContext() {
        std::size_t count = 0;
        for (; !waiting_.empty(); ++count) {
            const std::function<void()> work = std::move(waiting_.front());
            waiting_.pop_front();
            work();
        }
        return count;
    }
    std::size_t waiting() const noexcept { return waiting_.size(); }
    /// Those of the documents and of their input contexts.
    std::size_t observerCount() const noexcept {
        std::size_t count = observers_.count();
        for (const auto& [id, observers] : inputs_)
            count += observers.count();
        return count;
    }
    /// The texts of what was sent, in order.
    CStringArray sentTexts() const {
        CStringArray texts;
        for (const SentString& each : sent)
            texts.push_back(each.text);
        return texts;
    }

    bool hasCurrentDocument() override { return open; }
    DocumentId currentDocument() override {
        makeFirst();
        return open ? current_ : DocumentId::none;
    }
    DocumentId activeDocument() override { return currentDocument(); }
    std::vector<DocumentId> documents() override {
        makeFirst();
        std::vector<DocumentId> ids;
        for (const Document& each : documents_)
            ids.push_back(each.id);
        return ids;
    }
    CString fileName(DocumentId id) override { return find(id) ? find(id)->name : CString(); }
    bool isNamed(DocumentId id) override { return find(id) && find(id)->named; }
    bool isQuiescent(DocumentId id) override { return find(id) && find(id)->quiescent; }
    DocumentId documentOfFile(CStringView path) override {
        const auto hit = std::find_if(documents_.begin(), documents_.end(),
            [path](const Document& each) { return each.named && equalNoCase(each.name, path); });
        return hit == documents_.end() ? DocumentId::none : hit->id;
    }
    /// The test's files are renamed when there are any.
    FileStatus renameFile(DocumentId id, CStringView newPath) override {
        Files& files = *platform().os.files;
        FileInformation found;
        if (files.information(newPath, found).ok() && !equalNoCase(find(id)->name, newPath))
            return {FileError::exists, 0};
        const FileStatus status = files.rename(find(id)->name, newPath);
        if (status.ok())
            find(id)->name = newPath;
        return status;
    }
    void sendStringToExecute(DocumentId id, CStringView text, CommandStringOptions options) override {
        if (find(id))
            sent.push_back({id, CString(text), options});
        if (const auto run = std::exchange(meanwhile, nullptr))
            run();
    }
    void executeInApplicationContext(std::function<void()> work) override {
        waiting_.push_back(std::move(work));
    }
    void add(DocumentObserver& observer) override { observers_.add(observer); }
    void remove(DocumentObserver& observer) override { observers_.remove(observer); }
    void attach(DocumentId id, InputContextObserver& observer) override {
        if (find(id))
            inputs_[id].add(observer);
    }
    void detach(InputContextObserver& observer) override {
        for (auto& [id, observers] : inputs_)
            observers.remove(observer);
    }

private:
    DocumentId insert(CStringView name, bool named) {
        const auto id = static_cast<DocumentId>(++last_);
        documents_.push_back({id, CString(name), named, true});
        return id;
    }
    void makeFirst() {
        if (open && documents_.empty())
            current_ = insert(u"Drawing1.dwg", false);
    }
    Document* find(DocumentId id) {
        makeFirst();
        const auto hit = std::find_if(
            documents_.begin(), documents_.end(), [id](const Document& each) { return each.id == id; });
        return hit == documents_.end() ? nullptr : &*hit;
    }

    std::vector<Document> documents_;
    DocumentId current_ = DocumentId::none;
    std::int32_t last_ = 0;
    ScriptedObservers<DocumentObserver> observers_;
    std::map<DocumentId, ScriptedObservers<InputContextObserver>> inputs_;
    std::deque<std::function<void()>> waiting_;
};

} // namespace ryv::test
