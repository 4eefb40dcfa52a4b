#include "host/lisp/lisp_function.h"

#include "bridge/platform.h"

namespace ryv {

namespace {

/// Hands each kind of value to the host.
struct Giver {
    HostLisp& lisp;

    void operator()(LispAnswer::Nil) const { lisp.returnNil(); }
    void operator()(LispAnswer::Truth) const { lisp.returnT(); }
    void operator()(int number) const { lisp.returnInt(number); }
    void operator()(const CString& text) const { lisp.returnString(text); }
    void operator()(const CStringArray& texts) const {
        HostResultBuffer elements;
        for (const CString& text : texts)
            elements.addString(text);
        lisp.returnList(elements);
    }
};

} // namespace

int runLispFunction(LispWork work) noexcept {
    try {
        const HostResultBuffer arguments = platform().host.lisp->getArgs();
        const LispAnswer answer = work(LispValues(arguments));
        std::visit(Giver{*platform().host.lisp}, answer.value); // asked for anew: the work may have ended it
        return answer.status;
    } catch (...) { // not only ours: what the host throws to end its own work would have to cross its LISP
        platform().host.lisp->returnNil();
        return LispAnswer::wrongCall;
    }
}

} // namespace ryv
