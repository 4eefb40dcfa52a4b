// Message formatting for texts that come from a catalogue: "%d" and "%s" with arguments of a known type.
#pragma once

#include "base/strings.h"

#include <concepts>
#include <initializer_list>
#include <variant>

namespace ryv {

/// One argument: a number for "%d" or a text for "%s". A text is not copied; it has to outlive the call.
class FormatArgument {
public:
    FormatArgument(std::integral auto number) : value_(static_cast<long long>(number)) {}
    FormatArgument(CStringView text) : value_(text) {}
    FormatArgument(const CString& text) : value_(CStringView(text)) {}
    FormatArgument(const char16_t* text) : value_(CStringView(text)) {}

    bool isNumber() const noexcept { return std::holds_alternative<long long>(value_); }
    long long number() const { return std::get<long long>(value_); }
    CStringView text() const { return std::get<CStringView>(value_); }

private:
    std::variant<long long, CStringView> value_;
};

/// The pattern with its "%d" and "%s" replaced by the arguments in order and "%%" by "%". A number is written
/// in decimal. A placeholder without an argument of its kind stays as it stands, so that a faulty catalogue
/// entry shows itself and loses nothing; arguments left over are ignored. Texts put in are not searched for
/// placeholders.
CString format(CStringView pattern, std::initializer_list<FormatArgument> arguments);

/// The kinds of a pattern's placeholders in order, as "d" and "s": lets a test compare catalogue and callers.
CString placeholders(CStringView pattern);

} // namespace ryv
