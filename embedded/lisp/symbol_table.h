// The symbols by name.
#pragma once

#include "embedded/lisp/heap.h"

#include <unordered_map>

namespace drafta::lisp {

/// Symbols belong to the heap. One that has no value and that nothing refers to is collected, and made anew
/// when its name turns up again.
class SymbolTable {
public:
    explicit SymbolTable(Heap& heap) noexcept : heap_(&heap) {}

    /// The symbol of a name, made if there is none. Case does not count.
    Symbol* intern(ryv::CStringView name);
    /// Null when there is none.
    Symbol* find(ryv::CStringView name) const;

    void markUsed(Marker& marker) const;
    /// Before the heap is swept.
    void forgetUnmarked();

    template <class Visit>
    void forEach(Visit visit) const {
        for (const auto& [name, symbol] : symbols_)
            visit(*symbol);
    }

private:
    Heap* heap_;
    std::unordered_map<ryv::CStringView, Symbol*> symbols_; // keys are the symbols' own names
};

} // namespace drafta::lisp
