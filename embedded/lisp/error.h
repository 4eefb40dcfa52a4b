// How things go wrong in LISP.
#pragma once

#include "base/strings.h"

#include <cstddef>

namespace drafta::lisp {

enum class ErrorKind {
    failed,       ///< a function refused its arguments, or something of the kind
    syntax,       ///< the text is no LISP
    tooDeep,      ///< calls or lists are nested too deeply
    memory,       ///< the heap's limit is reached
    notInvocable, ///< a call from outside named no function that may be called from there
    quit,         ///< (exit) or (quit)
    interrupted,  ///< Interpreter::interrupt(); LISP code cannot catch it
    steps         ///< the limit of steps is reached; LISP code cannot catch it
};

/// What evaluate(), load() and the like report.
struct Error {
    ErrorKind kind = ErrorKind::failed;
    ryv::CString message; ///< without place, e.g. "bad argument type: stringp 5"
    ryv::CString file;    ///< name of the source that the failing form stands in; empty when unknown
    std::size_t line = 0; ///< line number in it, the first line being 1; 0 when unknown
    ryv::CString form;    ///< the failing form as printed, shortened when long; empty when there is none
};

/// All of it in one line: "file:line: message in (form)"; parts that are unknown are left out.
ryv::CString describe(const Error& error);

/// What a native function throws to raise a LISP error: `throw LispError(u"no such drawing");`. The
/// interpreter adds the place. It never leaves the operations of Interpreter that say so.
class LispError {
public:
    explicit LispError(ryv::CString message, ErrorKind kind = ErrorKind::failed)
        : message_(std::move(message)), kind_(kind) {}

    const ryv::CString& message() const noexcept { return message_; }
    ErrorKind kind() const noexcept { return kind_; }

private:
    ryv::CString message_;
    ErrorKind kind_;
};

} // namespace drafta::lisp
