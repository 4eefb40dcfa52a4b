// Where errors end.
#include "base/text.h"
#include "embedded/lisp/entry.h"
#include "embedded/lisp/printer.h"

namespace drafta::lisp {

namespace {

/// Kinds after which no more LISP code shall run.
bool isFinal(ErrorKind kind) {
    return kind == ErrorKind::steps;
}

} // namespace

ryv::CString describe(const Error& error) {
    ryv::CString text = error.file;
    if (error.line > 0)
        text += (text.empty() ? u"line " : u":") + ryv::toText(static_cast<long long>(error.line));
    if (!text.empty())
        text += u": ";
    text += error.message;
    return error.form.empty() ? text : text + u" in " + error.form;
}

Result Machine::guard(const std::function<Value()>& action) {
    const Entry entry(*this);
    const StackMarks before = marks();
    Result result;
    try {
        result.value = action();
    } catch (const LispError& error) {
        result = failed(error, before);
    } catch (const std::bad_alloc&) {
        result = failed(LispError(u"memory is used up", ErrorKind::memory), before);
    } catch (const std::length_error&) {
        result = failed(LispError(u"memory is used up", ErrorKind::memory), before);
    }
    site_ = before.site;
    return result;
}

Result Machine::failed(const LispError& error, const StackMarks& marks) {
    Result result;
    result.error = located(error);
    top_ = marks.top;
    depth_ = marks.depth;
    site_ = nullptr;
    if (error.kind() == ErrorKind::memory)
        collect();
    if (!isFinal(error.kind()))
        runErrorHandler(result.error->message);
    unwind(marks);
    return result;
}

Error Machine::located(const LispError& error) const {
    Error found{error.kind(), error.message(), {}, 0, {}};
    if (!site_)
        return found;
    if (site_->code && site_->code->source)
        found.file = *site_->code->source;
    found.line = site_->line;
    if (!site_->form.isNil())
        found.form = briefly(site_->form);
    return found;
}

/// The variables of the functions that failed still have their values here: the handler is often one of them,
/// and uses the others to put things back.
void Machine::runErrorHandler(const ryv::CString& message) {
    const Value handler = errorHandler_->value;
    if (inErrorHandler_ || handler.isNil())
        return;
    inErrorHandler_ = true;
    const auto run = [&] {
        const Value text = string(message);
        return call(handler, {&text, 1});
    };
    const Result result = guard(run);
    inErrorHandler_ = false;
    if (!result.ok())
        services_->print(u"error in *error*: " + describe(*result.error) + u"\n");
}

} // namespace drafta::lisp
