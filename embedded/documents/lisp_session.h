// The LISP of one document.
#pragma once

#include "embedded/lisp/interpreter.h"

#include <atomic>

namespace drafta {

/// Which interpreter is at work now, for all sessions of a host, so that it can be interrupted.
struct LispAtWork {
    std::atomic<lisp::Interpreter*> innermost = nullptr;
    std::atomic<bool> isInterrupted = false;

    /// Ends what runs with an error, in all interpreters that are at work. May be called from a signal
    /// handler.
    void interrupt() noexcept;
};

class LispSession {
public:
    /// Puts the host's own functions into a new interpreter.
    using Prepare = std::function<void(lisp::Interpreter&)>;

    /// Services and `atWork` outlive the session.
    LispSession(lisp::Services& services, LispAtWork& atWork, const Prepare& prepare)
        : services_(services), atWork_(atWork), interpreter_(services) {
        prepare(interpreter_);
    }

    /// Evaluates an expression as typed; its last value as LISP prints it, empty when the value is a quiet
    /// one (princ without arguments). Nothing after an error, which has been printed.
    std::optional<ryv::CString> evaluate(ryv::CStringView expression);

    /// Loads a file; false after an error, which has been printed.
    bool load(ryv::CStringView path);

    /// Calls the function "c:NAME" when there is one; false when there is none. An error has been printed.
    bool callCommand(ryv::CStringView name);

    /// See ryv::HostLisp::invoke.
    ryv::LispStatus invoke(const ryv::HostResultBuffer& call, ryv::HostResultBuffer& result);

    /// True while LISP code runs.
    bool isAtWork() const noexcept { return depth_ != 0; }

    lisp::Interpreter& interpreter() noexcept { return interpreter_; }

private:
    class Run;
    void report(lisp::Error error);

    lisp::Services& services_;
    LispAtWork& atWork_;
    lisp::Interpreter interpreter_;
    int depth_ = 0;
};

} // namespace drafta
