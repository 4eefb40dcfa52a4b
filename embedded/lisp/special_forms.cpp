// The special forms.
#include "embedded/lisp/call_node.h"
#include "embedded/lisp/compiler.h"

namespace drafta::lisp {

namespace {

class IfNode final : public Node {
public:
    IfNode(Operand test, Operand yes, Operand no) noexcept : test_(test), yes_(yes), no_(no) {}
    Value run(Machine& machine) const override {
        return test_.get(machine).isNil() ? no_.get(machine) : yes_.get(machine);
    }

private:
    Operand test_;
    Operand yes_;
    Operand no_;
};

struct Clause {
    Operand test;
    Operands body; // empty: the value of the test is the result
};

class CondNode final : public Node {
public:
    explicit CondNode(std::vector<Clause> clauses) noexcept : clauses_(std::move(clauses)) {}
    Value run(Machine& machine) const override {
        for (const Clause& clause : clauses_)
            if (const Value value = clause.test.get(machine); !value.isNil())
                return clause.body.empty() ? value : runAll(clause.body, machine);
        return {};
    }

private:
    std::vector<Clause> clauses_;
};

/// (and) and (or) give T or nil, whatever their arguments are.
class AndOrNode final : public Node {
public:
    AndOrNode(bool isAnd, Operands forms) noexcept : isAnd_(isAnd), forms_(std::move(forms)) {}
    Value run(Machine& machine) const override {
        for (const Operand& form : forms_)
            if (form.get(machine).isNil() == isAnd_)
                return machine.boolean(!isAnd_);
        return machine.boolean(isAnd_);
    }

private:
    bool isAnd_;
    Operands forms_;
};

class ProgNode final : public Node {
public:
    explicit ProgNode(Operands forms) noexcept : forms_(std::move(forms)) {}
    Value run(Machine& machine) const override { return runAll(forms_, machine); }

private:
    Operands forms_;
};

class SetNode final : public Node {
public:
    using Pairs = std::vector<std::pair<Symbol*, Operand>>;
    explicit SetNode(Pairs pairs) noexcept : pairs_(std::move(pairs)) {}
    Value run(Machine& machine) const override {
        for (const auto& [symbol, form] : pairs_)
            symbol->value = form.get(machine);
        return pairs_.empty() ? Value() : pairs_.back().first->value;
    }

private:
    Pairs pairs_;
};

class DefineNode final : public Node {
public:
    DefineNode(Symbol* name, Lambda* lambda) noexcept : name_(name), lambda_(lambda) {}
    Value run(Machine&) const override {
        name_->value = Value::of(lambda_);
        return Value::of(name_);
    }

private:
    Symbol* name_;
    Lambda* lambda_;
};

class WhileNode final : public Node {
public:
    WhileNode(Operand test, Operands body, Site site) noexcept
        : test_(test), body_(std::move(body)), site_(site) {}
    Value run(Machine& machine) const override {
        machine.require(1);
        Value* const result = machine.top();
        machine.push({});
        while (!test_.get(machine).isNil()) {
            machine.safePoint(site_);
            *result = runAll(body_, machine);
        }
        machine.drop(result);
        return *result;
    }

private:
    Operand test_;
    Operands body_;
    Site site_;
};

class RepeatNode final : public Node {
public:
    RepeatNode(Operand count, Operands body, Site site) noexcept
        : count_(count), body_(std::move(body)), site_(site) {}
    Value run(Machine& machine) const override {
        const Value count = count_.get(machine);
        if (!count.isInteger())
            machine.fail(site_, u"repeat takes an integer");
        Value result;
        for (std::int32_t left = count.asInteger(); left > 0; --left) {
            machine.safePoint(site_);
            result = runAll(body_, machine);
        }
        return result;
    }

private:
    Operand count_;
    Operands body_;
    Site site_;
};

class ForeachNode final : public Node {
public:
    ForeachNode(Symbol* variable, Operand list, Operands body, Site site) noexcept
        : variable_(variable), list_(list), body_(std::move(body)), site_(site) {}
    Value run(Machine& machine) const override {
        machine.require(1);
        Value* const base = machine.top();
        machine.push(list_.get(machine));
        if (!base->isList())
            machine.fail(site_, u"foreach takes a list");
        const Binding* const mark = machine.bindings();
        machine.bind(variable_, {});
        Value result;
        for (Value rest = *base; rest.isCons(); rest = rest.cdr()) {
            machine.safePoint(site_);
            variable_->value = rest.car();
            result = runAll(body_, machine);
        }
        machine.unbind(mark);
        machine.drop(base);
        return result;
    }

private:
    Symbol* variable_;
    Operand list_;
    Operands body_;
    Site site_;
};

Value second(Value form) {
    return form.cdr().car();
}

Value third(Value form) {
    return form.cdr().cdr().car();
}

bool isSettable(Value value) {
    return value.isSymbol() && !asSymbol(value)->isProtected;
}

ryv::CString cannotSet(Value value) {
    return value.isSymbol() ? u"cannot set " + asSymbol(value)->name : u"only symbols can be set";
}

Operand compileQuote(Compiler& compiler, Value form) {
    if (properLength(form) != 2)
        return compiler.fault(form, u"quote takes one argument");
    return compiler.constant(second(form));
}

Operand compileLambdaForm(Compiler& compiler, Value form) {
    ryv::CString fault;
    Lambda* const lambda = compiler.compileFunction(nullptr, form.cdr(), fault);
    return lambda ? compiler.constant(Value::of(lambda)) : compiler.fault(form, fault);
}

/// Like a quote, but a lambda expression is compiled with what stands around it.
Operand compileFunctionForm(Compiler& compiler, Value form) {
    const Value designator = second(form);
    if (properLength(form) == 2 && designator.isCons() &&
        designator.car() == compiler.machine().symbol(u"LAMBDA"))
        return compileLambdaForm(compiler, designator);
    return compileQuote(compiler, form);
}

Operand compileDefine(Compiler& compiler, Value form) {
    const Value name = second(form);
    if (!isSettable(name))
        return compiler.fault(form, name.isSymbol() ? cannotSet(name) : u"defun takes a name");
    ryv::CString fault;
    Lambda* const lambda = compiler.compileFunction(asSymbol(name), form.cdr().cdr(), fault);
    if (!lambda)
        return compiler.fault(form, fault);
    compiler.keep(Value::of(lambda));
    return compiler.node<DefineNode>(asSymbol(name), lambda);
}

Operand compileSet(Compiler& compiler, Value form) {
    SetNode::Pairs pairs;
    for (Value rest = form.cdr(); rest.isCons(); rest = rest.cdr().cdr()) {
        if (!rest.cdr().isCons())
            return compiler.fault(form, u"setq takes symbols and values in pairs");
        if (!isSettable(rest.car()))
            return compiler.fault(form, cannotSet(rest.car()));
        compiler.keep(rest.car());
        pairs.emplace_back(asSymbol(rest.car()), compiler.compile(second(rest)));
    }
    return compiler.node<SetNode>(std::move(pairs));
}

Operand compileIf(Compiler& compiler, Value form) {
    const std::size_t length = *properLength(form);
    if (length < 3 || length > 4)
        return compiler.fault(form, u"if takes a test and one or two forms");
    const Operand test = compiler.compile(second(form));
    const Operand yes = compiler.compile(third(form));
    return compiler.node<IfNode>(test, yes, compiler.compile(third(form.cdr())));
}

Operand compileCond(Compiler& compiler, Value form) {
    std::vector<Clause> clauses;
    for (Value rest = form.cdr(); rest.isCons(); rest = rest.cdr()) {
        const Value clause = rest.car();
        if (!clause.isCons() || !properLength(clause))
            return compiler.fault(form, u"a clause of cond has to be a list");
        const Operand test = compiler.compile(clause.car());
        clauses.push_back({test, compiler.compileAll(clause.cdr())});
    }
    return compiler.node<CondNode>(std::move(clauses));
}

Operand compileAnd(Compiler& compiler, Value form) {
    return compiler.node<AndOrNode>(true, compiler.compileAll(form.cdr()));
}

Operand compileOr(Compiler& compiler, Value form) {
    return compiler.node<AndOrNode>(false, compiler.compileAll(form.cdr()));
}

Operand compileProgn(Compiler& compiler, Value form) {
    return compiler.node<ProgNode>(compiler.compileAll(form.cdr()));
}

Operand compileWhile(Compiler& compiler, Value form) {
    if (!form.cdr().isCons())
        return compiler.fault(form, u"while takes a test");
    const Operand test = compiler.compile(second(form));
    return compiler.node<WhileNode>(test, compiler.compileAll(form.cdr().cdr()), compiler.siteOf(form));
}

Operand compileRepeat(Compiler& compiler, Value form) {
    if (!form.cdr().isCons())
        return compiler.fault(form, u"repeat takes a number");
    const Operand count = compiler.compile(second(form));
    return compiler.node<RepeatNode>(count, compiler.compileAll(form.cdr().cdr()), compiler.siteOf(form));
}

Operand compileForeach(Compiler& compiler, Value form) {
    const Value variable = second(form);
    if (*properLength(form) < 3 || !isSettable(variable))
        return compiler.fault(form, u"foreach takes a symbol and a list");
    compiler.keep(variable);
    const Operand list = compiler.compile(third(form));
    return compiler.node<ForeachNode>(
        asSymbol(variable), list, compiler.compileAll(form.cdr().cdr().cdr()), compiler.siteOf(form));
}

} // namespace

void defineSpecialForms(Machine& machine) {
    machine.defineSpecial(u"quote", compileQuote);
    machine.defineSpecial(u"function", compileFunctionForm);
    machine.defineSpecial(u"lambda", compileLambdaForm);
    machine.defineSpecial(u"defun", compileDefine);
    machine.defineSpecial(u"setq", compileSet);
    machine.defineSpecial(u"if", compileIf);
    machine.defineSpecial(u"cond", compileCond);
    machine.defineSpecial(u"and", compileAnd);
    machine.defineSpecial(u"or", compileOr);
    machine.defineSpecial(u"progn", compileProgn);
    machine.defineSpecial(u"while", compileWhile);
    machine.defineSpecial(u"repeat", compileRepeat);
    machine.defineSpecial(u"foreach", compileForeach);
}

} // namespace drafta::lisp
