#include "embedded/documents/documents.h"

#include "base/fold.h"
#include "base/format.h"
#include "base/text.h"
#include "embedded/documents/command_line.h"
#include "embedded/services/host_texts.h"

#include <algorithm>

namespace drafta {

using ryv::DocumentId;
using ryv::DrawingResult;

Documents::~Documents() {
    for (const auto& document : documents_)
        document->drawing->close();
}

/// Observers may come and go, and open and close documents, while they are told: newest first, each one only
/// while it is still there.
template <class Notice>
void Documents::tell(const Notice& notice) {
    const std::vector<ryv::DocumentObserver*> told = observers_;
    for (auto observer = told.rbegin(); observer != told.rend(); ++observer)
        if (std::find(observers_.begin(), observers_.end(), *observer) != observers_.end())
            notice(**observer);
}

template <class Notice>
void Documents::tellContext(DocumentId id, const Notice& notice) {
    const Document* const document = find(id);
    const std::vector<ryv::InputContextObserver*> told =
        document ? document->observers : std::vector<ryv::InputContextObserver*>();
    for (auto observer = told.rbegin(); observer != told.rend(); ++observer) {
        const Document* const still = find(id);
        if (still &&
            std::find(still->observers.begin(), still->observers.end(), *observer) != still->observers.end())
            notice(**observer);
    }
}

DocumentId Documents::admit(std::shared_ptr<Drawing> drawing, ryv::CString name, bool isNamed) {
    auto document = std::make_unique<Document>();
    const DocumentId id = document->id = DocumentId(++lastId_);
    document->name = std::move(name);
    document->isNamed = isNamed;
    document->drawing = std::move(drawing);
    document->drawing->setSaveHook([this, id] { return save(id); });
    documents_.push_back(std::move(document));
    documents_.back()->lisp = parts_.makeLisp();
    tell([&](ryv::DocumentObserver& observer) { observer.documentCreated(id); });
    if (!find(id))
        return DocumentId::none; // an observer closed it
    current_ = id;
    recent_.push_back(id);
    if (!parts_.package.empty())
        find(id)->lisp->load(parts_.package);
    if (parts_.loaded && find(id))
        parts_.loaded(id);
    if (find(id))
        announce(id);
    return find(id) ? id : DocumentId::none;
}

DocumentId Documents::open(ryv::CStringView path, DrawingResult& result) {
    const ryv::CString full = parts_.paths->fullPath(path);
    if (Document* const already = findFile(full)) {
        result = {};
        const DocumentId id = already->id;
        activate(id);
        return id;
    }
    std::shared_ptr<Drawing> drawing = Drawing::load(*parts_.files, full, result);
    return drawing ? admit(std::move(drawing), full, true) : DocumentId::none;
}

DocumentId Documents::make(ryv::CStringView templateFile, DrawingResult& result) {
    std::shared_ptr<Drawing> drawing;
    result = {};
    if (!templateFile.empty())
        drawing = Drawing::fromTemplate(*parts_.files, templateFile, result);
    if (!drawing)
        drawing = Drawing::blank(*parts_.files);
    return admit(std::move(drawing), ryv::format(u"Drawing%d.dwg", {++unnamed_}), false);
}

bool Documents::activate(DocumentId id) {
    if (!find(id))
        return false;
    if (current_ == id)
        return true;
    current_ = id;
    std::erase(recent_, id);
    recent_.push_back(id);
    announce(id);
    return true;
}

void Documents::announce(DocumentId id) {
    tell([&](ryv::DocumentObserver& observer) { observer.documentActivated(id); });
}

bool Documents::close(DocumentId id) {
    const auto mayClose = [&](const Document* document) {
        return document && document->busy == 0 && !document->lisp->isAtWork();
    };
    Document* const asked = find(id);
    if (!mayClose(asked) || asked->isClosing)
        return false;
    asked->isClosing = true;
    tell([&](ryv::DocumentObserver& observer) { observer.documentToBeDestroyed(id); });
    if (!mayClose(find(id))) { // an observer has begun something in it
        find(id)->isClosing = false;
        return false;
    }
    const auto place = std::find_if(
        documents_.begin(), documents_.end(), [&](const auto& document) { return document->id == id; });
    const std::unique_ptr<Document> ending = std::move(*place);
    documents_.erase(place);
    parts_.commandLine->forget(id);
    ending->drawing->close();
    std::erase(recent_, id);
    const bool wasCurrent = current_ == id;
    if (wasCurrent)
        current_ = recent_.empty() ? DocumentId::none : recent_.back();
    tell([&](ryv::DocumentObserver& observer) { observer.documentDestroyed(id); });
    if (wasCurrent) {
        announce(current_);
    }
    return true;
}

DrawingResult Documents::save(DocumentId id) {
    Document* const document = find(id);
    if (!document)
        return {false, ryv::CString(hostText(u"the document is closed"))};
    if (!document->isNamed)
        return {false, document->name + u": " + ryv::CString(hostText(u"the drawing has no file yet"))};
    const bool written = document->drawing->isModified();
    DrawingResult result = document->drawing->save();
    if (result.ok() && written)
        afterSave(*document);
    return result;
}

DrawingResult Documents::saveAs(DocumentId id, ryv::CStringView path) {
    Document* const document = find(id);
    if (!document)
        return {false, ryv::CString(hostText(u"the document is closed"))};
    const ryv::CString full = parts_.paths->fullPath(path);
    if (const Document* const other = findFile(full); other && other != document)
        return {false, full + u": " + ryv::CString(hostText(u"the drawing is open in another document"))};
    DrawingResult result = document->drawing->saveAs(full);
    if (result.ok()) {
        document->name = full;
        document->isNamed = true;
        afterSave(*document);
    }
    return result;
}

void Documents::afterSave(Document& document) {
    const ryv::CString name = document.name;
    if (parts_.saved)
        parts_.saved(name);
}

Document* Documents::find(DocumentId id) {
    for (const auto& document : documents_)
        if (document->id == id)
            return document.get();
    return nullptr;
}

/// What tells two spellings of one file from two files.
ryv::CString Documents::identityOf(ryv::CStringView path) {
    ryv::CString resolved;
    const ryv::CString full = parts_.paths->fullPath(path);
    return parts_.files->resolve(full, resolved).ok() ? resolved : full;
}

Document* Documents::findFile(ryv::CStringView path) {
    const ryv::CString wanted = identityOf(path);
    for (const auto& document : documents_)
        if (document->isNamed && identityOf(document->name) == wanted)
            return document.get();
    return nullptr;
}

void Documents::beginBusy(DocumentId id) {
    Document* const document = find(id);
    if (!document || ++document->busy != 1 || !document->isQuiescent)
        return;
    document->isQuiescent = false;
    tellContext(id, [&](ryv::InputContextObserver& observer) { observer.endQuiescentState(id); });
}

void Documents::endBusy(DocumentId id) {
    if (Document* const document = find(id))
        --document->busy;
}

void Documents::lockModeChanged(DocumentId id, ryv::CStringView command) {
    tell([&](ryv::DocumentObserver& observer) { observer.documentLockModeChanged(id, command); });
}

void Documents::settle() {
    for (const DocumentId id : documents()) {
        Document* const document = find(id);
        if (!document || document->isQuiescent || document->busy != 0 || parts_.commandLine->isWaiting(id))
            continue;
        document->isQuiescent = true;
        tellContext(id, [&](ryv::InputContextObserver& observer) { observer.beginQuiescentState(id); });
    }
}

std::vector<DocumentId> Documents::documents() {
    std::vector<DocumentId> ids;
    for (const auto& document : documents_)
        ids.push_back(document->id);
    return ids;
}

ryv::CString Documents::fileName(DocumentId id) {
    const Document* const document = find(id);
    return document ? document->name : ryv::CString();
}

bool Documents::isNamed(DocumentId id) {
    const Document* const document = find(id);
    return document && document->isNamed;
}

bool Documents::isQuiescent(DocumentId id) {
    const Document* const document = find(id);
    return document && document->busy == 0 && !document->lisp->isAtWork() &&
           !parts_.commandLine->isWaiting(id);
}

DocumentId Documents::documentOfFile(ryv::CStringView path) {
    const Document* const document = findFile(path);
    return document ? document->id : DocumentId::none;
}

ryv::FileStatus Documents::renameFile(DocumentId id, ryv::CStringView newPath) {
    Document* const document = find(id);
    if (!document || !document->isNamed)
        return {ryv::FileError::missing, 0};
    const ryv::CString full = parts_.paths->fullPath(newPath);
    const ryv::FileStatus status = document->drawing->rename(full);
    if (status.ok())
        document->name = full;
    return status;
}

void Documents::sendStringToExecute(DocumentId id, ryv::CStringView text, ryv::CommandStringOptions options) {
    if (find(id))
        parts_.commandLine->send(id, text, options);
}

void Documents::executeInApplicationContext(std::function<void()> work) {
    parts_.commandLine->sendWork(std::move(work));
}

void Documents::add(ryv::DocumentObserver& observer) {
    if (std::find(observers_.begin(), observers_.end(), &observer) == observers_.end())
        observers_.push_back(&observer);
}

void Documents::remove(ryv::DocumentObserver& observer) {
    std::erase(observers_, &observer);
}

void Documents::attach(DocumentId id, ryv::InputContextObserver& observer) {
    Document* const document = find(id);
    if (!document)
        return;
    auto& observers = document->observers;
    if (std::find(observers.begin(), observers.end(), &observer) == observers.end())
        observers.push_back(&observer);
}

void Documents::detach(ryv::InputContextObserver& observer) {
    for (const auto& document : documents_)
        std::erase(document->observers, &observer);
}

} // namespace drafta
