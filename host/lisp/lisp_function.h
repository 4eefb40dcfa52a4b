// A function that the module offers to LISP, and what a call of it comes to.
#pragma once

#include "host/lisp/lisp_values.h"

namespace ryv {

/// The value that LISP gets and the status for the host's records.
struct LispAnswer {
    static constexpr int completed = 1; ///< whatever the value
    static constexpr int wrongCall = 3; ///< the arguments or the surroundings were wrong

    struct Nil {};
    struct Truth {};
    using Value = std::variant<Nil, Truth, int, CString, CStringArray>;

    Value value = Nil();
    int status = completed;

    static LispAnswer nil() { return {}; }
    static LispAnswer truth(bool holds) { return {holds ? Value(Truth()) : Value(Nil()), completed}; }
    static LispAnswer number(int number) { return {number, completed}; }
    static LispAnswer text(CString text) { return {std::move(text), completed}; }
    static LispAnswer list(CStringArray texts) { return {std::move(texts), completed}; }
    static LispAnswer wrong() { return {Nil(), wrongCall}; }
};

/// Does the work of one function. It may throw.
using LispWork = LispAnswer (*)(const LispValues& arguments);

struct LispFunction {
    int code = 0; ///< fixed; scripts of the host know functions by it
    CStringView name;
    LispWork work = nullptr;
    bool bindsOnlyIfDefined = false; ///< the handler is not bound when the host refused the definition
};

/// Runs a function on the arguments of the call under way and hands its result to the host, exactly one in
/// every case. Gives the status. Nothing throws out of it: a function that does gives nil and 3.
int runLispFunction(LispWork work) noexcept;

} // namespace ryv
