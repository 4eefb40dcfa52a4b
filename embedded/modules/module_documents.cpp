#include "embedded/modules/module_documents.h"

namespace drafta {

void ModuleDocuments::executeInApplicationContext(std::function<void()> work) {
    documents_.executeInApplicationContext(work_.keep(std::move(work)));
}

void ModuleDocuments::add(ryv::DocumentObserver& observer) {
    documents_.add(observer);
    observers_.add(&observer);
}

void ModuleDocuments::remove(ryv::DocumentObserver& observer) {
    documents_.remove(observer);
    observers_.remove(&observer);
}

void ModuleDocuments::attach(ryv::DocumentId document, ryv::InputContextObserver& observer) {
    documents_.attach(document, observer);
    inputObservers_.add(&observer);
}

void ModuleDocuments::detach(ryv::InputContextObserver& observer) {
    documents_.detach(observer);
    inputObservers_.remove(&observer);
}

void ModuleDocuments::drop() {
    work_.drop();
    observers_.drop([&](ryv::DocumentObserver* observer) { documents_.remove(*observer); });
    inputObservers_.drop([&](ryv::InputContextObserver* observer) { documents_.detach(*observer); });
}

} // namespace drafta
