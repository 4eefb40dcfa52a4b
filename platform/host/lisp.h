// The host's LISP interpreter as the module calls it and as it calls the module. Each document has a LISP of
// its own; all operations work on the one of the current document.
#pragma once

#include "platform/host/result_buffer.h"

#include <functional>

namespace ryv {

/// A function that the module offers to LISP: reads its arguments with HostLisp::getArgs, sets its result
/// with one of the return operations (nil when it sets none) and gives its status: 1 completed, 3 the
/// arguments or the surroundings were wrong. The status is for the host's records; LISP sees the result only.
using LispHandler = std::function<int()>;

class HostLisp {
public:
    virtual ~HostLisp() = default;

    /// Calls a LISP function: `call` begins with a string node that names it, followed by the arguments. The
    /// function must have been made invocable. `result` is filled on success and left alone otherwise. A LISP
    /// error in the function is printed by the host and gives `failure`.
    virtual LispStatus invoke(const HostResultBuffer& call, HostResultBuffer& result) = 0;

    /// The expression that makes a LISP function callable through invoke(), with "%s" in the place of its
    /// name.
    virtual CString exposeFunctionFormat() = 0;

    /// Sets a global variable; a list as the chain of its elements between list marks.
    virtual LispStatus setSymbol(CStringView name, const HostResultBuffer& value) = 0;

    /// Makes `name` a function of the module, known by `code`; calling it without a handler gives nil.
    virtual LispStatus defineFunction(CStringView name, int code) = 0;

    /// Binds the handler of a code that defineFunction() has been given.
    virtual LispStatus registerHandler(int code, LispHandler handler) = 0;

    /// The arguments of the call under way; for handlers only.
    virtual HostResultBuffer getArgs() = 0;

    /// The result of the call under way; the last one counts.
    virtual void returnNil() = 0;
    virtual void returnT() = 0;
    virtual void returnInt(int number) = 0;
    virtual void returnString(CStringView text) = 0;
    /// The chain is the list's elements.
    virtual void returnList(const HostResultBuffer& elements) = 0;
};

/// An interpreter that knows no function and takes none.
class NullHostLisp : public HostLisp {
public:
    LispStatus invoke(const HostResultBuffer&, HostResultBuffer&) override { return LispStatus::failure; }
    CString exposeFunctionFormat() override { return u"(expose-function '%s)"; }
    LispStatus setSymbol(CStringView, const HostResultBuffer&) override { return LispStatus::failure; }
    LispStatus defineFunction(CStringView, int) override { return LispStatus::failure; }
    LispStatus registerHandler(int, LispHandler) override { return LispStatus::failure; }
    HostResultBuffer getArgs() override { return {}; }
    void returnNil() override {}
    void returnT() override {}
    void returnInt(int) override {}
    void returnString(CStringView) override {}
    void returnList(const HostResultBuffer&) override {}
};

} // namespace ryv
