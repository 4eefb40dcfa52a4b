#include "embedded/lisp/heap.h"

namespace drafta::lisp {

bool Marker::isUnmarked(Value value) noexcept {
    if (value.isCons())
        return !ConsBlock::of(value.cell())->isMarked(ConsBlock::index(value.cell()));
    return value.isObject() && !value.object()->marked;
}

void Marker::run() {
    while (!pending_.empty()) {
        const Value value = pending_.back();
        pending_.pop_back();
        if (value.isCons())
            visitList(value);
        else if (!value.object()->marked)
            visitObject(*value.object());
    }
}

void Marker::visitList(Value list) {
    for (; list.isCons(); list = list.cell()->cdr) {
        const std::size_t index = ConsBlock::index(list.cell());
        std::uint64_t& word = ConsBlock::of(list.cell())->marks[index / 64];
        const std::uint64_t bit = std::uint64_t{1} << (index % 64);
        if (word & bit)
            return;
        word |= bit;
        ++cellCount_;
        mark(list.cell()->car);
    }
    mark(list);
}

void Marker::visitObject(Object& object) {
    object.marked = true;
    switch (object.kind) {
    case Kind::symbol:
        mark(static_cast<Symbol&>(object).value);
        return;
    case Kind::opaque:
        mark(static_cast<Opaque&>(object).type);
        return;
    case Kind::function:
        visitFunction(static_cast<Function&>(object));
        return;
    default:
        return;
    }
}

void Marker::visitFunction(Function& function) {
    mark(function.name);
    if (function.type != FunctionType::lambda)
        return;
    const auto& lambda = static_cast<Lambda&>(function);
    for (Symbol* const variable : lambda.variables)
        mark(variable);
    for (const Value constant : lambda.code.constants)
        mark(constant);
}

} // namespace drafta::lisp
