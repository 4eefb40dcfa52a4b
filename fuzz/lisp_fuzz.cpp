// LISP of any text: read, evaluated, printed and handed over as a chain, with small limits and without files.
// The interpreter collects at every chance, so that a value that is not held is noticed by the sanitizer.
// What prints and is read again has to print the same.
#include "base/encoding.h"
#include "embedded/lisp/interpreter.h"
#include "fuzz/fuzz_input.h"

namespace {

using namespace drafta::lisp;

constexpr Limits limits{
    .bytes = std::size_t{4} << 20, .callDepth = 300, .steps = 3000, .collectAlways = true};

using fuzz::require;

/// Only what the reader makes reads back as it prints: no reals, which lose digits, and no other objects.
bool readsBack(Value value, int depth = 0) {
    if (value.isSymbol())
        return !value.text().empty();
    if (!value.isCons())
        return value.isNil() || value.isInteger() || value.isString();
    for (; value.isCons(); value = value.cdr())
        if (depth > 50 || !readsBack(value.car(), depth + 1))
            return false;
    return readsBack(value, depth + 1);
}

void printAndReadAgain(Interpreter& lisp, Value value) {
    const bool comesBack = readsBack(value);
    const ryv::CString printed = lisp.printed(value);
    const ryv::HostResultBuffer chain = lisp.resultChain(value);
    const std::optional<Value> list = lisp.listFromChain(chain);
    require(list.has_value());
    require(chain.size() > 0);
    const Result again = lisp.evaluate(u"(quote " + printed + u")");
    require(!comesBack || (again.ok() && lisp.printed(again.value) == printed));
}

void run(ryv::CStringView text) {
    NullServices services;
    Interpreter lisp(services, limits);
    const Result result = lisp.evaluate(text, u"input");
    require(result.ok() || !describe(*result.error).empty());
    try {
        if (result.ok())
            printAndReadAgain(lisp, result.value);
    } catch (const LispError&) {
        // Too deep, too long or too many: nothing else may come out of these operations.
    }
    for (const ryv::CString& command : lisp.commands())
        lisp.callProtected(lisp.symbolValue(u"c:" + command), {});
    lisp.collect();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    run(ryv::decodeUtf8(std::string(data, data + size)));
    return 0;
}
