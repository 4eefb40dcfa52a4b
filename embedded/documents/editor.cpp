#include "embedded/documents/editor.h"

#include "base/fold.h"

#include <algorithm>

namespace drafta {

/// Newest first, each only while it is still there.
template <class Notice>
void Editor::tell(const Notice& notice) {
    const std::vector<ryv::EditorObserver*> told = observers_;
    for (auto observer = told.rbegin(); observer != told.rend(); ++observer)
        if (std::find(observers_.begin(), observers_.end(), *observer) != observers_.end())
            notice(**observer);
}

void Editor::defineVariable(ryv::CStringView name, Read read) {
    defineVariable(name, std::move(read), nullptr);
}

void Editor::defineVariable(ryv::CStringView name, Read read, Write write) {
    variables_[ryv::toUpper(name)] = {ryv::CString(name), {}, std::move(read), std::move(write)};
}

void Editor::defineVariable(ryv::CStringView name, ryv::SystemVariable value) {
    variables_[ryv::toUpper(name)] = {ryv::CString(name), std::move(value), nullptr, nullptr};
}

bool Editor::mayQuit() {
    bool veto = false;
    tell([&](ryv::EditorObserver& observer) {
        bool own = veto;
        observer.beginQuit(own);
        veto = veto || own;
    });
    return !veto;
}

void Editor::tellSaved(ryv::CStringView path) {
    tell([&](ryv::EditorObserver& observer) { observer.saveComplete(path); });
}

bool Editor::systemVariable(ryv::CStringView name, ryv::SystemVariable& value) {
    const auto hit = variables_.find(ryv::toUpper(name));
    if (hit == variables_.end())
        return false;
    value = hit->second.read ? hit->second.read() : hit->second.value;
    return true;
}

bool Editor::setSystemVariable(ryv::CStringView name, const ryv::SystemVariable& value) {
    ryv::SystemVariable old;
    if (!systemVariable(name, old) || old.index() != value.index())
        return false;
    Variable& variable = variables_.find(ryv::toUpper(name))->second;
    if (variable.read && !(variable.write && variable.write(value)))
        return false;
    if (!variable.read)
        variable.value = value;
    const ryv::CString spelled = variable.name;
    tell([&](ryv::EditorObserver& observer) { observer.systemVariableChanged(spelled); });
    return true;
}

void Editor::add(ryv::EditorObserver& observer) {
    if (std::find(observers_.begin(), observers_.end(), &observer) == observers_.end())
        observers_.push_back(&observer);
}

void Editor::remove(ryv::EditorObserver& observer) {
    std::erase(observers_, &observer);
}

} // namespace drafta
