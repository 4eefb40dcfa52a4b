// What values point to, apart from pairs.
#pragma once

#include "embedded/lisp/code.h"
#include "embedded/lisp/interpreter.h"
#include "platform/os/files.h"

namespace drafta::lisp {

class Machine;
class Compiler;
class LispFile;

/// Made and destroyed by the heap.
struct Object {
    explicit Object(Kind objectKind) noexcept : kind(objectKind) {}

    const Kind kind;
    bool marked = false;
};

/// One for each name. The value cell holds the value of the innermost binding; the others lie on the
/// machine's binding stack.
struct Symbol : Object {
    explicit Symbol(ryv::CString upperCaseName) : Object(Kind::symbol), name(std::move(upperCaseName)) {}

    Value value;
    ryv::CString name;
    bool isProtected = false; ///< can be neither set nor bound
    bool isInvocable = false;
};

struct Text : Object {
    explicit Text(ryv::CString content) : Object(Kind::string), text(std::move(content)) {}
    ryv::CString text;
};

enum class FunctionType : std::uint8_t { special, builtin, lambda };

struct Function : Object {
    Function(FunctionType functionType, Symbol* functionName) noexcept
        : Object(Kind::function), type(functionType), name(functionName) {}

    const FunctionType type;
    Symbol* name; ///< null for a lambda expression
};

/// A form whose arguments are not evaluated before it sees them; it is compiled by a function of its own.
struct Special : Function {
    using Compile = Operand (*)(Compiler& compiler, Value form);
    Special(Symbol* specialName, Compile compileForm) noexcept
        : Function(FunctionType::special, specialName), compile(compileForm) {}
    Compile compile;
};

/// A function written in C++: `plain` for those of the language, otherwise `native`.
struct Builtin : Function {
    using Plain = Value (*)(Machine& machine, Arguments arguments);
    Builtin(Symbol* builtinName, std::size_t leastCount, std::size_t mostCount, Plain function) noexcept
        : Function(FunctionType::builtin, builtinName), least(leastCount), most(mostCount), plain(function) {}

    std::size_t least;
    std::size_t most;
    Plain plain;
    NativeFunction native;
};

/// A function written in LISP.
struct Lambda : Function {
    explicit Lambda(Symbol* lambdaName) : Function(FunctionType::lambda, lambdaName) {}

    std::vector<Symbol*> variables; ///< the parameters, then the other local variables
    std::size_t parameterCount = 0;
    Code code;
};

struct File : Object {
    explicit File(std::unique_ptr<LispFile> opened);
    ~File();
    std::unique_ptr<LispFile> file; ///< null once it is closed
};

struct Opaque : Object {
    Opaque(Symbol* typeName, std::uint64_t number) noexcept
        : Object(Kind::opaque), type(typeName), id(number) {}
    Symbol* type;
    std::uint64_t id;
};

struct Failure : Object {
    explicit Failure(ryv::CString text) : Object(Kind::failure), message(std::move(text)) {}
    ryv::CString message;
};

/// The object of a value known to be of the kind.
inline Symbol* asSymbol(Value value) noexcept {
    return static_cast<Symbol*>(value.object());
}
inline Function* asFunction(Value value) noexcept {
    return static_cast<Function*>(value.object());
}

} // namespace drafta::lisp
