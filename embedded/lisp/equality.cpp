#include "embedded/lisp/equality.h"

#include "base/text.h"
#include "embedded/lisp/machine.h"

#include <cmath>

namespace drafta::lisp {

namespace {

bool isOpaque(Value value) {
    return value.kind() == Kind::opaque;
}

bool equalAtoms(Value a, Value b, double fuzz) {
    if (a.isNumber() && b.isNumber())
        return a.asNumber() == b.asNumber() || std::fabs(a.asNumber() - b.asNumber()) <= fuzz;
    if (a.isString() && b.isString())
        return ryv::sameText(a.text(), b.text());
    return same(a, b);
}

} // namespace

bool same(Value a, Value b) noexcept {
    if (a == b)
        return true;
    if (!a.isObject() || !b.isObject() || !isOpaque(a) || !isOpaque(b))
        return false;
    return a.opaqueId() == b.opaqueId() && ryv::sameText(a.text(), b.text());
}

bool equal(Machine& machine, Value a, Value b, double fuzz) {
    machine.checkStack();
    while (a.isCons() && b.isCons()) {
        if (a == b)
            return true;
        machine.poll();
        if (!equal(machine, a.car(), b.car(), fuzz))
            return false;
        a = a.cdr();
        b = b.cdr();
    }
    return equalAtoms(a, b, fuzz);
}

} // namespace drafta::lisp
