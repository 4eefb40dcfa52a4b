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

    /// Lets the innermost of them call lisp::Services::breathe() soon. May be called from a signal handler of
    /// the interpreters' own thread.
    void requestBreath() noexcept;
};

/// What is made of the value of an expression.
enum class ValueForm {
    none,    ///< nothing, it is not asked for
    printed, ///< as LISP prints it; empty for the result of (princ) without arguments
    answer ///< of a string its text, of anything else as printed; nil is no answer, and evaluating fails then
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

    /// Evaluates an expression as typed, and gives its last value in the form that is wanted. False after an
    /// error, which has been printed, and when the value is no answer.
    bool evaluate(ryv::CStringView expression, ValueForm form, ryv::CString& value);

    /// Loads a file; false after an error, which has been printed.
    bool load(ryv::CStringView path);

    /// Calls the function "c:NAME" when there is one; false when there is none. An error has been printed.
    bool callCommand(ryv::CStringView name);

    /// See ryv::HostLisp::invoke.
    ryv::LispStatus invoke(const ryv::HostResultBuffer& call, ryv::HostResultBuffer& result);

    /// True while LISP code runs.
    bool isAtWork() const noexcept { return depth_ != 0; }

    /// How many errors were printed so far.
    std::size_t errors() const noexcept { return errors_; }

    lisp::Interpreter& interpreter() noexcept { return interpreter_; }

private:
    class Run;
    void report(lisp::Error error);

    lisp::Services& services_;
    LispAtWork& atWork_;
    lisp::Interpreter interpreter_;
    int depth_ = 0;
    std::size_t errors_ = 0;
};

} // namespace drafta
