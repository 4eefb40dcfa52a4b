#include "embedded/documents/lisp_session.h"

#include "base/encoding.h"
#include "base/fold.h"
#include "base/paths.h"

namespace drafta {

void LispAtWork::interrupt() noexcept {
    isInterrupted.store(true);
    if (lisp::Interpreter* const interpreter = innermost.load())
        interpreter->interrupt();
}

void LispAtWork::requestBreath() noexcept {
    if (lisp::Interpreter* const interpreter = innermost.load())
        interpreter->requestBreath();
}

/// LISP of one document may start that of another. An interrupt ends the innermost; each one that ends hands
/// it on to the one around it, and the outermost ends the interrupt.
class LispSession::Run {
public:
    explicit Run(LispSession& session) noexcept
        : session_(session), outer_(session.atWork_.innermost.exchange(&session.interpreter_)) {
        ++session_.depth_;
        if (!outer_) {
            session_.interpreter_.clearInterrupt();
            session_.atWork_.isInterrupted.store(false);
        }
    }
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;
    ~Run() {
        --session_.depth_;
        session_.atWork_.innermost.store(outer_);
        if (outer_ && session_.atWork_.isInterrupted.load())
            outer_->interrupt();
    }

private:
    LispSession& session_;
    lisp::Interpreter* outer_;
};

/// People are shown the native path of the file; of what was typed the line is no help.
void LispSession::report(lisp::Error error) {
    if (error.kind == lisp::ErrorKind::quit)
        return;
    if (error.file.empty())
        error.line = 0;
    else if (!ryv::paths::isRelative(error.file))
        error.file = ryv::nameFromBytes(services_.paths().toNative(error.file));
    ++errors_;
    services_.print(u"\n" + lisp::describe(error) + u"\n");
}

bool LispSession::evaluate(ryv::CStringView expression, ValueForm form, ryv::CString& value) {
    const Run run(*this);
    value.clear();
    const lisp::Result result = form == ValueForm::none ? interpreter_.evaluate(expression)
                                                        : interpreter_.evaluateAndPrint(expression, {},
                                                              form == ValueForm::printed, value);
    if (!result.ok())
        report(*result.error);
    return result.ok() && !(form == ValueForm::answer && result.value.isNil());
}

bool LispSession::load(ryv::CStringView path) {
    const Run run(*this);
    const lisp::Result result = interpreter_.load(path);
    if (!result.ok())
        report(*result.error);
    return result.ok() || result.error->kind == lisp::ErrorKind::quit;
}

bool LispSession::callCommand(ryv::CStringView name) {
    const ryv::CString function = u"C:" + ryv::toUpper(name);
    if (!interpreter_.isFunction(function))
        return false;
    const Run run(*this);
    const lisp::Result result = interpreter_.callProtected(interpreter_.makeSymbol(function), {});
    if (!result.ok())
        report(*result.error);
    return true;
}

ryv::LispStatus LispSession::invoke(const ryv::HostResultBuffer& call, ryv::HostResultBuffer& result) {
    const Run run(*this);
    lisp::Error error;
    const ryv::LispStatus status = interpreter_.invoke(call, result, &error);
    // Whoever calls a function that may not be called is told by the status; LISP itself did nothing wrong.
    if (status != ryv::LispStatus::success && error.kind != lisp::ErrorKind::notInvocable)
        report(error);
    return status;
}

} // namespace drafta
