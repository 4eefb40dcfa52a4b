// Finding and replacing within strings. Case counts.
#include "embedded/lisp/builtins/builtins.h"
#include "embedded/lisp/builtins/wildcards.h"

namespace drafta::lisp {

namespace {

std::size_t startArgument(Value value) {
    if (value.isNil())
        return 0;
    const std::int32_t start = integerArgument(value);
    if (start < 0)
        throw LispError(u"a position in a string is not negative");
    return static_cast<std::size_t>(start);
}

Value indexOrNil(std::size_t index) {
    return index == ryv::CStringView::npos ? Value() : Value::integer(static_cast<std::int32_t>(index));
}

Value search(Machine&, Arguments arguments) {
    const ryv::CStringView text = textArgument(arguments[1]);
    return indexOrNil(text.find(textArgument(arguments[0]), startArgument(optional(arguments, 2))));
}

/// Replaces the first occurrence.
Value replace(Machine& machine, Arguments arguments) {
    const ryv::CStringView with = textArgument(arguments[0]);
    const ryv::CStringView pattern = textArgument(arguments[1]);
    const ryv::CStringView text = textArgument(arguments[2]);
    const std::size_t index = text.find(pattern, startArgument(optional(arguments, 3)));
    if (index == ryv::CStringView::npos)
        return arguments[2];
    ryv::CString result(text);
    return machine.string(result.replace(index, pattern.size(), with));
}

/// Of a character, given by its code; with a fourth argument the last one.
Value position(Machine&, Arguments arguments) {
    const auto unit = static_cast<char16_t>(integerArgument(arguments[0]));
    const ryv::CStringView text = textArgument(arguments[1]);
    const std::size_t start = startArgument(optional(arguments, 2));
    if (optional(arguments, 3).isNil())
        return indexOrNil(text.find(unit, start));
    const std::size_t index = text.rfind(unit);
    return indexOrNil(index < start ? ryv::CStringView::npos : index);
}

Value match(Machine& machine, Arguments arguments) {
    return machine.boolean(matchesWildcards(textArgument(arguments[0]), textArgument(arguments[1])));
}

constexpr Definition definitions[] = {
    {u"vl-string-search", 2, 3, search},
    {u"vl-string-subst", 3, 4, replace},
    {u"vl-string-position", 2, 4, position},
    {u"wcmatch", 2, 2, match},
};

} // namespace

void defineStringSearch(Machine& machine) {
    defineAll(machine, definitions);
}

} // namespace drafta::lisp
