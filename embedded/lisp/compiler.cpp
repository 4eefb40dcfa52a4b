#include "embedded/lisp/compiler.h"

#include "embedded/lisp/call_node.h"

namespace drafta::lisp {

namespace {

constexpr std::size_t deepestForm = 500; // forms within forms, as each costs the thread's stack when it runs

bool isSlash(Value value) {
    return value.isSymbol() && asSymbol(value)->name == u"/";
}

/// (a b / c d): the names in front of the slash are parameters.
bool readVariables(Lambda& lambda, Value names, ryv::CString& fault) {
    bool behindSlash = false;
    for (; names.isCons(); names = names.cdr()) {
        const Value name = names.car();
        if (isSlash(name) && !behindSlash) {
            behindSlash = true;
            continue;
        }
        if (!name.isSymbol() || asSymbol(name)->isProtected) {
            fault =
                name.isSymbol() ? u"cannot bind " + asSymbol(name)->name : u"a parameter has to be a symbol";
            return false;
        }
        lambda.variables.push_back(asSymbol(name));
        lambda.parameterCount += behindSlash ? 0 : 1;
    }
    if (!names.isNil())
        fault = u"the parameters have to be a list";
    return names.isNil();
}

} // namespace

std::optional<std::size_t> properLength(Value list) noexcept {
    std::size_t length = 0;
    for (; list.isCons(); list = list.cdr())
        ++length;
    return list.isNil() ? std::optional(length) : std::nullopt;
}

Operand Compiler::constant(Value value) {
    code_->constants.push_back(value);
    return Operand(&code_->constants.back());
}

Operand Compiler::variable(Symbol* symbol) {
    keep(Value::of(symbol));
    return Operand(&symbol->value);
}

Operand Compiler::fault(Value form, ryv::CString message) {
    return node<FaultNode>(siteOf(form), std::move(message));
}

Site Compiler::siteOf(Value form) {
    keep(form);
    Site site{form, code_, origin_.line};
    if (origin_.lines && form.isCons())
        if (const auto hit = origin_.lines->find(form.cell()); hit != origin_.lines->end())
            site.line = hit->second;
    return site;
}

Operand Compiler::compile(Value form) {
    if (form.isCons())
        return compileList(form);
    return form.isSymbol() ? variable(asSymbol(form)) : constant(form);
}

Operands Compiler::compileAll(Value forms) {
    Operands operands;
    for (; forms.isCons(); forms = forms.cdr())
        operands.push_back(compile(forms.car()));
    return operands;
}

Operand Compiler::compileList(Value form) {
    const std::optional<std::size_t> length = properLength(form);
    if (!length)
        return fault(form, u"a form has to be a list that ends in nil");
    machine_->checkStack();
    if (++depth_ > deepestForm)
        throw LispError(u"forms are nested too deeply", ErrorKind::tooDeep);
    const Value head = form.car();
    std::optional<Operand> result;
    if (head.isSymbol() && asSymbol(head)->value.isFunction()) {
        const Function* const function = asFunction(asSymbol(head)->value);
        if (function->type == FunctionType::special)
            result = static_cast<const Special*>(function)->compile(*this, form);
        else if (function->type == FunctionType::builtin)
            result = compileInline(*this, asSymbol(head), form, *length - 1);
    }
    if (!result)
        result = node<CallNode>(compile(head), compileAll(form.cdr()), siteOf(form));
    --depth_;
    return *result;
}

Lambda* Compiler::compileFunction(Symbol* name, Value parametersAndBody, ryv::CString& fault) {
    if (!parametersAndBody.isCons() || !properLength(parametersAndBody)) {
        fault = u"parameters are missing";
        return nullptr;
    }
    auto* const lambda = machine_->heap().make<Lambda>(0, name);
    if (!readVariables(*lambda, parametersAndBody.car(), fault))
        return nullptr;
    lambda->code.source = origin_.source;
    Compiler inner(*machine_, lambda->code, origin_, depth_);
    lambda->code.body = inner.compileAll(parametersAndBody.cdr());
    machine_->heap().account(Heap::bytesOf(*lambda));
    return lambda;
}

Lambda* compileForm(Machine& machine, Value form, Origin origin) {
    auto* const lambda = machine.heap().make<Lambda>(0, nullptr);
    lambda->code.source = origin.source;
    Compiler compiler(machine, lambda->code, std::move(origin), 0);
    lambda->code.body.push_back(compiler.compile(form));
    machine.heap().account(Heap::bytesOf(*lambda));
    return lambda;
}

Lambda* compileLambda(Machine& machine, Value parametersAndBody, Origin origin) {
    Code outer;
    ryv::CString fault;
    Compiler compiler(machine, outer, std::move(origin), 0);
    Lambda* const lambda = compiler.compileFunction(nullptr, parametersAndBody, fault);
    if (!lambda)
        throw LispError(u"bad function: " + fault);
    return lambda;
}

} // namespace drafta::lisp
