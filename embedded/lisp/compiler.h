// From lists to nodes.
#pragma once

#include "embedded/lisp/machine.h"

namespace drafta::lisp {

/// Compiles the forms of one function, or one form at top level. A form that makes no sense becomes a node
/// that raises an error when it is run, so that a faulty branch harms only those who take it.
class Compiler {
public:
    Compiler(Machine& machine, Code& code, Origin origin, std::size_t depth)
        : machine_(&machine), code_(&code), origin_(std::move(origin)), depth_(depth) {}

    Operand compile(Value form);
    /// All elements of a list of forms.
    Operands compileAll(Value forms);
    /// Parameters and body, as (lambda) and (defun) have them behind the name. Null, with the reason in
    /// `fault`, when they make no sense.
    Lambda* compileFunction(Symbol* name, Value parametersAndBody, ryv::CString& fault);

    Operand constant(Value value);
    Operand variable(Symbol* symbol);
    /// Keeps a value from collection for as long as the code.
    void keep(Value value) { code_->constants.push_back(value); }
    Operand fault(Value form, ryv::CString message);
    Site siteOf(Value form);

    template <class T, class... Args>
    Operand node(Args&&... args) {
        auto made = std::make_unique<T>(std::forward<Args>(args)...);
        const Node* const result = made.get();
        code_->nodes.push_back(std::move(made));
        return Operand(result);
    }

    Machine& machine() const noexcept { return *machine_; }

private:
    Operand compileList(Value form);

    Machine* machine_;
    Code* code_;
    Origin origin_;
    std::size_t depth_;
};

/// A function without parameters or name that evaluates one form.
Lambda* compileForm(Machine& machine, Value form, Origin origin);

/// A function from parameters and body. Throws LispError when they make no sense.
Lambda* compileLambda(Machine& machine, Value parametersAndBody, Origin origin);

/// Number of elements when `list` is a list that ends in nil.
std::optional<std::size_t> properLength(Value list) noexcept;

/// Makes the names of the special forms known.
void defineSpecialForms(Machine& machine);

/// A node for a call of a function of the language that is done without leaving the node; nothing when the
/// function is none of those or takes another number of arguments.
std::optional<Operand> compileInline(
    Compiler& compiler, Symbol* symbol, Value form, std::size_t argumentCount);

} // namespace drafta::lisp
