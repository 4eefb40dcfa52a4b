// Making strings and taking them apart. Positions of (substr) begin with 1, all others with 0; lengths count
// UTF-16 units.
#include "embedded/lisp/builtins/builtins.h"

#include "base/fold.h"
#include "base/text.h"

#include <algorithm>

namespace drafta::lisp {

namespace {

Value concatenate(Machine& machine, Arguments arguments) {
    std::size_t length = 0;
    for (const Value argument : arguments)
        length += textArgument(argument).size();
    machine.heap().requireRoom(length * sizeof(char16_t));
    ryv::CString text;
    text.reserve(length);
    for (const Value argument : arguments)
        text += argument.text();
    return machine.string(text);
}

Value substring(Machine& machine, Arguments arguments) {
    const ryv::CStringView text = textArgument(arguments[0]);
    const std::int32_t start = integerArgument(arguments[1]);
    const std::int32_t length = arguments.size() == 3 ? integerArgument(arguments[2]) : INT32_MAX;
    if (start < 1 || length < 0)
        throw LispError(u"substr takes a position from 1 on and a length from 0 on");
    const std::size_t offset = std::min(static_cast<std::size_t>(start) - 1, text.size());
    return machine.string(text.substr(offset, static_cast<std::size_t>(length)));
}

Value length(Machine&, Arguments arguments) {
    std::size_t length = 0;
    for (const Value argument : arguments)
        length += textArgument(argument).size();
    return Value::integer(static_cast<std::int32_t>(length));
}

/// To upper case, or with a second argument that is not nil to lower case.
Value changeCase(Machine& machine, Arguments arguments) {
    const ryv::CStringView text = textArgument(arguments[0]);
    return machine.string(optional(arguments, 1).isNil() ? ryv::toUpper(text) : ryv::toLower(text));
}

Value codeOfFirst(Machine&, Arguments arguments) {
    const ryv::CStringView text = textArgument(arguments[0]);
    return Value::integer(text.empty() ? 0 : text.front());
}

char16_t unitArgument(Value value) {
    const std::int32_t code = integerArgument(value);
    if (code < 1 || code > 0xFFFF)
        throw LispError(u"a character code lies between 1 and 65535");
    return static_cast<char16_t>(code);
}

Value character(Machine& machine, Arguments arguments) {
    const char16_t unit = unitArgument(arguments[0]);
    return machine.string({&unit, 1});
}

template <bool left, bool right>
Value trim(Machine& machine, Arguments arguments) {
    const ryv::CStringView units = textArgument(arguments[0]);
    ryv::CStringView text = textArgument(arguments[1]);
    if (left)
        text.remove_prefix(std::min(text.find_first_not_of(units), text.size()));
    if (right)
        text = text.substr(0, text.find_last_not_of(units) + 1);
    return machine.string(text);
}

Value element(Machine&, Arguments arguments) {
    const ryv::CStringView text = textArgument(arguments[0]);
    const std::int32_t index = integerArgument(arguments[1]);
    if (index < 0 || static_cast<std::size_t>(index) >= text.size())
        throw LispError(u"vl-string-elt: no such position");
    return Value::integer(text[static_cast<std::size_t>(index)]);
}

Value toList(Machine& machine, Arguments arguments) {
    ListBuilder result(machine);
    for (const char16_t unit : textArgument(arguments[0]))
        result.add(Value::integer(unit));
    return result.take();
}

Value fromList(Machine& machine, Arguments arguments) {
    ryv::CString text;
    for (Value rest = listArgument(arguments[0]); rest.isCons(); rest = rest.cdr())
        text += unitArgument(rest.car());
    return machine.string(text);
}

/// Each unit that occurs in the first text becomes the one at the same place of the second.
Value translate(Machine& machine, Arguments arguments) {
    const ryv::CStringView from = textArgument(arguments[0]);
    const ryv::CStringView to = textArgument(arguments[1]);
    ryv::CString text(textArgument(arguments[2]));
    for (char16_t& unit : text)
        if (const std::size_t index = from.find(unit); index < to.size())
            unit = to[index];
    return machine.string(text);
}

Value split(Machine& machine, Arguments arguments) {
    const ryv::CStringView text = textArgument(arguments[0]);
    const ryv::CStringView separator = textArgument(arguments[1]);
    if (separator.empty())
        throw LispError(u"string-split takes a separator that is not empty");
    ListBuilder result(machine);
    std::size_t start = 0;
    for (std::size_t end; (end = text.find(separator, start)) != text.npos; start = end + separator.size())
        result.add(machine.string(text.substr(start, end - start)));
    result.add(machine.string(text.substr(start)));
    return result.take();
}

constexpr Definition definitions[] = {
    {u"strcat", 0, anyNumber, concatenate},
    {u"substr", 2, 3, substring},
    {u"strlen", 0, anyNumber, length},
    {u"strcase", 1, 2, changeCase},
    {u"ascii", 1, 1, codeOfFirst},
    {u"chr", 1, 1, character},
    {u"vl-string-trim", 2, 2, trim<true, true>},
    {u"vl-string-left-trim", 2, 2, trim<true, false>},
    {u"vl-string-right-trim", 2, 2, trim<false, true>},
    {u"vl-string-elt", 2, 2, element},
    {u"vl-string-translate", 3, 3, translate},
    {u"vl-string->list", 1, 1, toList},
    {u"vl-list->string", 1, 1, fromList},
    {u"string-split", 2, 2, split},
};

} // namespace

void defineStrings(Machine& machine) {
    defineAll(machine, definitions);
}

} // namespace drafta::lisp
