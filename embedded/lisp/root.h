// Keeping values alive across calls into the interpreter.
#pragma once

#include "embedded/lisp/value.h"

#include <vector>

namespace drafta::lisp {

class Interpreter;
class Machine;

/// Head of the chain of all roots of an interpreter.
struct RootLink {
    RootLink* previous = this;
    RootLink* next = this;
};

/// Holds a value and keeps it from being collected. May live on the stack or in an object; the interpreter
/// outlives it.
class Root : private RootLink {
public:
    explicit Root(Interpreter& interpreter, Value value = {});
    explicit Root(Machine& machine, Value value = {});
    Root(const Root&) = delete;
    Root& operator=(const Root&) = delete;
    ~Root();

    Root& operator=(Value value) noexcept {
        value_ = value;
        return *this;
    }
    operator Value() const noexcept { return value_; }
    Value get() const noexcept { return value_; }

private:
    friend class Machine;
    void link(RootLink& head) noexcept;

    Value value_;
};

/// Builds a list from its front. The list is safe from collection while it is built.
class ListBuilder {
public:
    explicit ListBuilder(Interpreter& interpreter);
    explicit ListBuilder(Machine& machine);

    /// Puts an element behind those that are there. Throws LispError when memory is used up.
    void add(Value element);

    /// The list so far; nil when nothing was added. With `tail`, a dotted one, or one that ends in the list
    /// `tail`. The builder is empty afterwards.
    Value take(Value tail = {});

private:
    Machine* machine_;
    Root first_;
    Cons* last_ = nullptr;
};

} // namespace drafta::lisp
