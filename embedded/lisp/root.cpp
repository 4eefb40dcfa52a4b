#include "embedded/lisp/root.h"

#include "embedded/lisp/interpreter.h"
#include "embedded/lisp/machine.h"

namespace drafta::lisp {

Root::Root(Interpreter& interpreter, Value value) : Root(*interpreter.machine_, value) {}

Root::Root(Machine& machine, Value value) : value_(value) {
    link(machine.roots());
}

Root::~Root() {
    previous->next = next;
    next->previous = previous;
}

void Root::link(RootLink& head) noexcept {
    previous = &head;
    next = head.next;
    head.next->previous = this;
    head.next = this;
}

ListBuilder::ListBuilder(Interpreter& interpreter) : ListBuilder(*interpreter.machine_) {}

ListBuilder::ListBuilder(Machine& machine) : machine_(&machine), first_(machine) {}

void ListBuilder::add(Value element) {
    const Value cell = machine_->cons(element, {});
    if (last_)
        last_->cdr = cell;
    else
        first_ = cell;
    last_ = cell.cell();
}

Value ListBuilder::take(Value tail) {
    const Value list = last_ ? first_.get() : tail;
    if (last_)
        last_->cdr = tail;
    first_ = Value();
    last_ = nullptr;
    return list;
}

} // namespace drafta::lisp
