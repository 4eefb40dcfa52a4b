// The host LISP's value chain: arguments and results of calls, one node a value.
//
// The chain itself is a list. The arguments of a call are its nodes, a list among them stands between list
// marks (or is one nested node). A result that is a list comes back as the chain of its elements, lists among
// these between marks, and a list that a handler returns is handed over in the same way. The empty list is
// nil. A dotted pair is a list with a dot node before its last value.
#pragma once

#include "base/strings.h"

#include <cstdint>
#include <utility>
#include <variant>
#include <vector>

namespace ryv {

/// Type codes of the nodes.
enum class ResultType : short {
    none = 5000, ///< something that has no form outside LISP, such as a function or an open file
    real = 5001,
    integer = 5003, ///< 16-bit
    string = 5005,
    longInteger = 5010, ///< 32-bit; only for numbers that 16 bits do not hold
    listBegin = 5016,
    listEnd = 5017,
    dot = 5018, ///< stands before the last value of a list that does not end in nil
    nil = 5019,
    truth = 5021,     ///< the symbol T
    nestedList = 5023 ///< a whole list passed as one value
};

/// Status of a call. Any other number is a failure of the host's own.
enum class LispStatus : int {
    success = 5100,
    failure = -5001,
    noDocument = -5004 ///< there is no current document; nothing was called
};

/// A chain of values. It owns its nodes, so whoever holds the chain releases it by letting it go.
class HostResultBuffer {
public:
    struct Node;
    using Chain = std::vector<Node>;

    HostResultBuffer() = default;

    HostResultBuffer& addString(CStringView text);
    HostResultBuffer& addInteger(std::int16_t number);
    HostResultBuffer& addLongInteger(std::int32_t number);
    HostResultBuffer& addReal(double number);
    HostResultBuffer& addNone();
    HostResultBuffer& addNil();
    HostResultBuffer& addTruth();
    HostResultBuffer& addListBegin();
    HostResultBuffer& addListEnd();
    HostResultBuffer& addDot();
    /// A list of strings between list marks; no strings make nil.
    HostResultBuffer& addStrings(const CStringArray& texts);
    /// The values of `list` as one value, without list marks of their own.
    HostResultBuffer& addNestedList(HostResultBuffer list);

    bool empty() const noexcept;
    std::size_t size() const noexcept;
    const Node& at(std::size_t index) const;

    /// The text of the node at `index`, or null when there is no such node or it is not a string.
    const CString* stringAt(std::size_t index) const noexcept;
    /// The number of the node at `index`, or null when there is no such node or it is not an integer.
    const std::int16_t* integerAt(std::size_t index) const noexcept;

private:
    HostResultBuffer& add(ResultType type);
    Chain nodes_;
};

/// One value. `value` holds a number or text as the type asks; the other types carry none.
struct HostResultBuffer::Node {
    ResultType type = ResultType::nil;
    std::variant<std::monostate, std::int16_t, std::int32_t, double, CString, HostResultBuffer> value;
};

inline bool HostResultBuffer::empty() const noexcept {
    return nodes_.empty();
}

inline std::size_t HostResultBuffer::size() const noexcept {
    return nodes_.size();
}

} // namespace ryv
