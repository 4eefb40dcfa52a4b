// Numbers and strings into each other.
#include "embedded/lisp/builtins/builtins.h"
#include "embedded/lisp/printer.h"
#include "embedded/lisp/reader.h"

#include "base/fold.h"
#include "base/text.h"

#include <array>
#include <charconv>
#include <cmath>

namespace drafta::lisp {

namespace {

constexpr std::int32_t scientific = 1;
constexpr std::int32_t decimal = 2;

Value integerToText(Machine& machine, Arguments arguments) {
    return machine.string(ryv::toText(integerArgument(arguments[0])));
}

/// Mode 1 is scientific and 2 decimal, with a number of places behind the point (4 when none is given).
Value realToText(Machine& machine, Arguments arguments) {
    const double number = numberArgument(arguments[0]);
    const std::int32_t mode = arguments.size() > 1 ? integerArgument(arguments[1]) : decimal;
    const std::int32_t places = arguments.size() > 2 ? integerArgument(arguments[2]) : 4;
    if (mode != scientific && mode != decimal)
        throw LispError(u"rtos knows the modes 1 and 2");
    if (places < 0 || places > 100)
        throw LispError(u"rtos writes 0 to 100 places");
    std::array<char, 512> digits; // a real has up to 309 digits in front of the point
    const auto format = mode == scientific ? std::chars_format::scientific : std::chars_format::fixed;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number, format, places).ptr;
    return machine.string(ryv::toUpper(ryv::fromAscii({digits.data(), end})));
}

Value textToInteger(Machine&, Arguments arguments) {
    return Value::integer(ryv::leadingInteger(textArgument(arguments[0])));
}

/// The longest number at the start of a text, behind white space.
Value textToReal(Machine&, Arguments arguments) {
    const ryv::CStringView text = ryv::trimLeft(textArgument(arguments[0]));
    const std::size_t end = std::min(text.find_first_not_of(u"+-.0123456789eE"), text.size());
    for (std::size_t length = std::min<std::size_t>(end, 400); length > 0; --length)
        if (const std::optional<Value> number = parseNumber(text.substr(0, length)))
            return Value::real(number->asNumber());
    return Value::real(0);
}

/// The whole text, or nil.
Value textToDistance(Machine&, Arguments arguments) {
    const std::optional<Value> number = parseNumber(ryv::trim(textArgument(arguments[0])));
    return number ? Value::real(number->asNumber()) : Value();
}

template <bool quoted>
Value print(Machine& machine, Arguments arguments) {
    return machine.string(printed(machine, arguments[0], quoted));
}

constexpr Definition definitions[] = {
    {u"itoa", 1, 1, integerToText},
    {u"rtos", 1, 3, realToText},
    {u"atoi", 1, 1, textToInteger},
    {u"atof", 1, 1, textToReal},
    {u"distof", 1, 1, textToDistance},
    {u"vl-prin1-to-string", 1, 1, print<true>},
    {u"vl-princ-to-string", 1, 1, print<false>},
};

} // namespace

void defineConversions(Machine& machine) {
    defineAll(machine, definitions);
}

} // namespace drafta::lisp
