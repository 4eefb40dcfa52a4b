// Calling functions.
#include "base/encoding.h"
#include "embedded/lisp/compiler.h"
#include "embedded/lisp/entry.h"
#include "embedded/lisp/printer.h"

namespace drafta::lisp {

namespace {

ryv::CString nameOf(const Function& function) {
    return function.name ? function.name->name : ryv::CString(u"the lambda expression");
}

ryv::CString wrongCount(const Function& function, bool tooFew) {
    return (tooFew ? u"too few arguments for " : u"too many arguments for ") + nameOf(function);
}

} // namespace

Value Machine::callLambda(const Lambda& lambda, Value* base, std::size_t count, const Site& site) {
    if (count != lambda.parameterCount)
        fail(site, wrongCount(lambda, count < lambda.parameterCount));
    safePoint(site);
    if (++depth_ > limits_.callDepth || isStackLow()) {
        site_ = &site;
        failTooDeep();
    }
    const Binding* const mark = bindingTop_;
    for (std::size_t i = 0; i < count; ++i)
        bind(lambda.variables[i], base[i + 1]);
    for (std::size_t i = count; i < lambda.variables.size(); ++i)
        bind(lambda.variables[i], {});
    top_ = base + 1; // the function itself stays, so that it outlives its own redefinition
    const Value value = runAll(lambda.code.body, *this);
    unbind(mark);
    --depth_;
    top_ = base;
    return value;
}

Value Machine::callBuiltin(const Builtin& builtin, Value* base, std::size_t count, const Site& site) {
    if (count < builtin.least || count > builtin.most)
        fail(site, wrongCount(builtin, count < builtin.least));
    site_ = &site;
    const Arguments arguments(base + 1, count);
    const Value value = builtin.plain ? builtin.plain(*this, arguments) : callNative(builtin, arguments);
    top_ = base;
    return value;
}

Value Machine::callNative(const Builtin& builtin, Arguments arguments) {
    try {
        return builtin.native(*interpreter_, arguments);
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const LispError&) {
        throw;
    } catch (const std::exception& error) {
        throw LispError(ryv::decodeUtf8(error.what()));
    } catch (...) {
        throw LispError(u"a function of the host failed");
    }
}

Value Machine::applyOther(Value* base, std::size_t count, const Site& site) {
    site_ = &site;
    const Value designator = *base;
    if (designator.isNil() && site.form.car().isSymbol())
        throw LispError(u"no function definition: " + asSymbol(site.form.car())->name);
    *base = functionOf(designator);
    return apply(base, count, site);
}

Value Machine::functionOf(Value designator) {
    Value function = designator;
    if (function.isSymbol())
        function = asSymbol(function)->value;
    if (function.isFunction() && asFunction(function)->type != FunctionType::special)
        return function;
    if (function.isNil() && designator.isSymbol())
        throw LispError(u"no function definition: " + asSymbol(designator)->name);
    if (function.isCons())
        return Value::of(compiledList(function));
    throw LispError(u"bad function: " + briefly(designator));
}

Lambda* Machine::compiledList(Value list) {
    if (const auto hit = compiledLists_.find(list.cell()); hit != compiledLists_.end())
        return hit->second;
    if (list.car() != symbol(u"LAMBDA"))
        throw LispError(u"bad function: " + briefly(list));
    Lambda* const lambda = compileLambda(*this, list.cdr(), currentOrigin());
    compiledLists_.emplace(list.cell(), lambda);
    return lambda;
}

Value Machine::call(Value function, Arguments arguments) {
    const Entry entry(*this);
    const Site* const caller = site_;
    require(arguments.size() + 1);
    Value* const base = top_;
    push(function);
    for (const Value argument : arguments)
        push(argument);
    const Value value = apply(base, arguments.size(), caller ? *caller : outside_);
    site_ = caller;
    return value;
}

namespace {
const Lambda* lambdaOf(Value function) {
    const bool isLambda = function.isFunction() && asFunction(function)->type == FunctionType::lambda;
    return isLambda ? static_cast<const Lambda*>(asFunction(function)) : nullptr;
}
} // namespace

Value Machine::callWithList(Value function, Value list, bool fillsUp) {
    std::vector<Value> arguments;
    for (; list.isCons(); list = list.cdr())
        arguments.push_back(list.car());
    if (const Lambda* const lambda = fillsUp ? lambdaOf(function) : nullptr;
        lambda && arguments.size() < lambda->parameterCount)
        arguments.resize(lambda->parameterCount);
    return call(function, arguments);
}

Origin Machine::currentOrigin() const {
    const bool known = site_ && site_->code;
    return known ? Origin{site_->code->source, nullptr, site_->line} : Origin();
}

Value Machine::evaluate(Value form, Origin origin) {
    return call(Value::of(compileForm(*this, form, std::move(origin))), {});
}

} // namespace drafta::lisp
