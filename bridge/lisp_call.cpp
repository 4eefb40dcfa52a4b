#include "bridge/lisp_call.h"

#include "bridge/lisp.h"

#include <optional>

namespace ryv {

namespace {

bool isNothing(const HostResultBuffer& reply) {
    return reply.empty() || (reply.size() == 1 && reply.at(0).type == ResultType::nil);
}

bool isTruth(const HostResultBuffer& reply) {
    return reply.size() == 1 && reply.at(0).type == ResultType::truth;
}

std::optional<double> numberOf(const HostResultBuffer::Node& node) {
    if (const auto* const real = std::get_if<double>(&node.value))
        return *real;
    if (const auto* const integer = std::get_if<std::int16_t>(&node.value))
        return *integer;
    if (const auto* const longInteger = std::get_if<std::int32_t>(&node.value))
        return *longInteger;
    return std::nullopt;
}

CStringArray stringsIn(const HostResultBuffer& reply) {
    CStringArray strings;
    for (std::size_t i = 0; i < reply.size(); ++i)
        if (const CString* const text = reply.stringAt(i))
            strings.push_back(*text);
    return strings;
}

} // namespace

bool callLisp(const HostResultBuffer& call) {
    HostResultBuffer reply;
    return invokeLisp(call, reply) == LispStatus::success;
}

bool callLispForString(const HostResultBuffer& call, CString& result) {
    HostResultBuffer reply;
    if (invokeLisp(call, reply) != LispStatus::success)
        return false;
    const CString* const text = reply.stringAt(0);
    if (!text)
        return false;
    result = *text;
    return true;
}

bool callLispForInteger(const HostResultBuffer& call, std::int16_t& result) {
    HostResultBuffer reply;
    if (invokeLisp(call, reply) != LispStatus::success)
        return false;
    const std::int16_t* const number = reply.integerAt(0);
    if (!number)
        return false;
    result = *number;
    return true;
}

bool callLispForList(const HostResultBuffer& call, HostResultBuffer& result) {
    HostResultBuffer reply;
    if (invokeLisp(call, reply) != LispStatus::success || isNothing(reply) || isTruth(reply))
        return false;
    result = std::move(reply);
    return true;
}

bool callLispForStrings(const HostResultBuffer& call, CStringArray& result) {
    HostResultBuffer reply;
    if (!callLispForList(call, reply))
        return false;
    CStringArray strings = stringsIn(reply);
    if (strings.size() != reply.size())
        return false;
    result.swap(strings);
    return true;
}

bool callLispForNumbers(const HostResultBuffer& call, std::vector<double>& result) {
    HostResultBuffer reply;
    if (!callLispForList(call, reply))
        return false;
    std::vector<double> numbers;
    for (std::size_t i = 0; i < reply.size(); ++i) {
        const std::optional<double> number = numberOf(reply.at(i));
        if (!number)
            return false;
        numbers.push_back(*number);
    }
    result.swap(numbers);
    return true;
}

bool callLispForItems(const HostResultBuffer& call, CStringArray& result) {
    HostResultBuffer reply;
    if (invokeLisp(call, reply) != LispStatus::success)
        return false;
    CStringArray strings = stringsIn(reply);
    if (strings.empty() && !isNothing(reply))
        return false;
    result.swap(strings);
    return true;
}

} // namespace ryv
