#include "embedded/lisp/symbol_table.h"

#include "base/fold.h"

namespace drafta::lisp {

Symbol* SymbolTable::intern(ryv::CStringView name) {
    ryv::CString key = ryv::toUpper(name);
    if (const auto hit = symbols_.find(key); hit != symbols_.end())
        return hit->second;
    const std::size_t bytes = key.size() * sizeof(char16_t);
    auto* const symbol = heap_->make<Symbol>(bytes, std::move(key));
    symbols_.emplace(symbol->name, symbol);
    return symbol;
}

Symbol* SymbolTable::find(ryv::CStringView name) const {
    const auto hit = symbols_.find(ryv::toUpper(name));
    return hit == symbols_.end() ? nullptr : hit->second;
}

void SymbolTable::markUsed(Marker& marker) const {
    for (const auto& [name, symbol] : symbols_)
        if (!symbol->value.isNil() || symbol->isInvocable)
            marker.mark(symbol);
}

void SymbolTable::forgetUnmarked() {
    std::erase_if(symbols_, [](const auto& entry) { return !entry.second->marked; });
}

} // namespace drafta::lisp
