// Compiled LISP: a tree of nodes that evaluate themselves.
#pragma once

#include "embedded/lisp/value.h"

#include <deque>
#include <memory>
#include <vector>

namespace drafta::lisp {

class Machine;

/// Evaluates one form. While it runs, temporary values that it holds across an evaluation lie on the
/// machine's value stack. An error leaves the stacks as they are; whoever catches it puts them back.
class Node {
public:
    Node() = default;
    Node(const Node&) = delete;
    Node& operator=(const Node&) = delete;
    virtual ~Node() = default;
    virtual Value run(Machine& machine) const = 0;
};

/// One form as its user sees it: a cell to read (a variable's, a constant's), or a node to run.
class Operand {
public:
    explicit Operand(const Value* cell) noexcept : cell_(cell) {}
    explicit Operand(const Node* node) noexcept : node_(node) {}

    Value get(Machine& machine) const { return cell_ ? *cell_ : node_->run(machine); }

private:
    const Value* cell_ = nullptr;
    const Node* node_ = nullptr;
};

using Operands = std::vector<Operand>;

/// The values of all operands in turn, the last one's as result; nil when there is none.
inline Value runAll(const Operands& operands, Machine& machine) {
    Value value;
    for (const Operand& operand : operands)
        value = operand.get(machine);
    return value;
}

/// The compiled body of a function or of a form at top level. It owns its nodes, and keeps alive what they
/// refer to: constants, symbols, the forms that error messages show.
struct Code {
    std::vector<std::unique_ptr<Node>> nodes;
    std::deque<Value> constants; ///< nodes point into it
    Operands body;
    std::shared_ptr<const ryv::CString> source; ///< its name
};

/// Where a form stands, for error messages.
struct Site {
    Value form;
    const Code* code = nullptr;
    std::size_t line = 0; ///< 0 when unknown
};

} // namespace drafta::lisp
