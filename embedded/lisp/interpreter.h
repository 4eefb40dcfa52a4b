// The LISP interpreter: one object a document, as the host's documents have a LISP of their own each.
//
// Everything is called from one thread, but for interrupt(). Names of symbols and functions count without
// regard to case.
#pragma once

#include "embedded/lisp/error.h"
#include "embedded/lisp/root.h"
#include "embedded/lisp/services.h"
#include "embedded/lisp/value.h"
#include "platform/host/result_buffer.h"

#include <functional>
#include <initializer_list>
#include <memory>
#include <optional>

namespace drafta::lisp {

/// How much LISP code may use before it gets an error.
struct Limits {
    std::size_t bytes = std::size_t{512} << 20; ///< of the heap: cells, strings, compiled functions
    std::size_t callDepth = 20'000;             ///< calls within calls; the thread's stack may end it earlier
    std::uint64_t steps = 0;    ///< calls, turns of loops and the like, for each evaluation; 0: no limit
    bool collectAlways = false; ///< at every chance; for finding values that are not rooted
};

/// The value of an evaluation (see value.h for how long it is valid), or nil and what went wrong.
struct Result {
    Value value;
    std::optional<Error> error;

    bool ok() const noexcept { return !error.has_value(); }
};

/// A function written in C++. Its arguments are as many as its definition allows. It reports an error by
/// throwing LispError; any other exception becomes a LISP error with its text.
using NativeFunction = std::function<Value(Interpreter&, Arguments)>;

/// The result of an external function: a single value, or with `isList` the elements of a list. An empty
/// chain is nil either way.
struct ExternalResult {
    ryv::HostResultBuffer chain;
    bool isList = false;
};

/// Runs the external function that a code stands for. It reports an error by throwing LispError.
using ExternalHandler = std::function<ExternalResult(int code, const ryv::HostResultBuffer& arguments)>;

class Interpreter {
public:
    static constexpr std::size_t anyNumber = static_cast<std::size_t>(-1); ///< of arguments

    /// The services outlive the interpreter.
    explicit Interpreter(Services& services, const Limits& limits = {});
    Interpreter(const Interpreter&) = delete;
    Interpreter& operator=(const Interpreter&) = delete;
    /// Closes files that are still open.
    ~Interpreter();

    // Running LISP. These never throw, and may be used within a native function too. On an error the value of
    // *error* is called with the message when it is a function, while the variables of the functions under
    // way still have their values; all of them get their former values back afterwards.

    /// Evaluates all forms of a text; the value is the last one's. `source` is the name that errors give.
    Result evaluate(ryv::CStringView text, ryv::CStringView source = {});
    /// The same, and prints the value under the same protection: `printedValue` is what (prin1) prints, or
    /// what (princ) prints unless `quoted`.
    Result evaluateAndPrint(
        ryv::CStringView expression, ryv::CStringView source, bool quoted, ryv::CString& printedValue);
    /// Evaluates a file: UTF-8, UTF-16 with a mark, or else Windows-1252. The name is looked up as (load)
    /// does, with and without ".lsp".
    Result load(ryv::CStringView name);
    /// Calls a function (or a symbol or lambda list that stands for one).
    Result callProtected(Value function, Arguments arguments);

    /// For native functions that call back: like callProtected, but errors go through as LispError.
    Value call(Value function, Arguments arguments);

    /// Makes the code under way, or the next one to run, end with an error. May be called from any thread and
    /// from a signal handler. clearInterrupt() takes back what has not been noticed yet.
    void interrupt() noexcept;
    void clearInterrupt() noexcept;

    /// Has the code under way call Services::breathe() once, soon. May be called from any thread.
    void requestBreath() noexcept;

    // Functions of the host.

    /// Makes `name` a native function that takes from `least` to `most` arguments.
    void define(ryv::CStringView name, std::size_t least, std::size_t most, NativeFunction function);
    /// Makes `name` a function that hands its arguments, as a chain, to the handler under its code. It is
    /// invocable. Without a handler it gives nil.
    void defineExternal(ryv::CStringView name, int code);
    void setExternalHandler(ExternalHandler handler);
    /// The code of the external function that a name has now; nothing when it has another value.
    std::optional<int> externalCode(ryv::CStringView name) const;

    /// Marks a name as invocable, as (expose-function 'name) does; false when no function has it.
    bool expose(ryv::CStringView name);
    /// Calls the function that the chain's first node names with the rest as arguments; those that a function
    /// written in LISP lacks at the end are nil, as callers leave them out. `result` is filled on
    /// success and left alone otherwise. `failure` when the chain is malformed, the name is not invocable, or
    /// a LISP error occurred; `error`, when given, says what it was. "veval-str+" is always invocable.
    ryv::LispStatus invoke(
        const ryv::HostResultBuffer& call, ryv::HostResultBuffer& result, Error* error = nullptr);

    /// True when `name` is the name of a function.
    bool isFunction(ryv::CStringView name) const;
    /// The functions whose names begin with "c:", without that, in upper case and sorted.
    ryv::CStringArray commands() const;
    /// All names that have a function, sorted.
    ryv::CStringArray functions() const;

    // Symbols.

    /// The value of a symbol; nil when it has none.
    Value symbolValue(ryv::CStringView name) const;
    /// False, with nothing changed, for nil, T and the names of special forms.
    bool setSymbolValue(ryv::CStringView name, Value value);
    /// The same with chains. An empty chain sets nil, several values set a list of them. `failure` when the
    /// chain is malformed or the symbol cannot be set.
    ryv::LispStatus setSymbol(ryv::CStringView name, const ryv::HostResultBuffer& value);
    ryv::HostResultBuffer readSymbol(ryv::CStringView name);

    // Making values. All throw LispError when memory is used up; LISP's own functions do too.

    Value makeString(ryv::CStringView text);
    Value makeSymbol(ryv::CStringView name);
    /// A value that LISP code can only hand on and compare: equal type and number are eq. (type) gives the
    /// type name as a symbol ("ENAME"); printed it is "<type: number in hexadecimal>".
    Value makeOpaque(ryv::CStringView type, std::uint64_t id);
    Value cons(Value car, Value cdr);
    Value list(std::initializer_list<Value> elements);
    Value list(Arguments elements);
    Value truth() const noexcept;
    Value boolean(bool condition) const noexcept { return condition ? truth() : Value(); }
    /// An integer when 32 bits hold it, otherwise a real.
    Value makeNumber(long long number);

    // Chains (platform/host/result_buffer.h).

    /// The values of a chain as one list; nothing when it is malformed (marks that do not match, a dot in a
    /// wrong place, lists nested deeper than 1000).
    std::optional<Value> listFromChain(const ryv::HostResultBuffer& chain);
    /// A value as a result: a list as the chain of its elements, lists among them between marks. Symbols but
    /// T become strings that hold their names; functions, files and other values that the chain has no node
    /// for become nil, and so does what is nested deeper than 1000. `failure` values become their message.
    /// Throws LispError when the chain would have more than ten million nodes.
    ryv::HostResultBuffer resultChain(Value value) const;

    // Text.

    /// As (prin1) prints it when `quoted`, otherwise as (princ) does. Throws LispError when lists are nested
    /// too deeply for the stack.
    ryv::CString printed(Value value, bool quoted = true) const;
    /// Prints on the host's command line.
    void print(ryv::CStringView text);

    // Memory.

    /// Collects at once. Not for use within a native function.
    void collect();
    /// Bytes that the heap uses, garbage included.
    std::size_t memoryInUse() const noexcept;

private:
    friend class Root;
    friend class ListBuilder;
    std::unique_ptr<Machine> machine_;
};

} // namespace drafta::lisp
