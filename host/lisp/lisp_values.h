// The arguments of a call from LISP, one value at a time.
#pragma once

#include "platform/host/result_buffer.h"

#include <optional>

namespace ryv {

/// A view of a value chain, or of a list in it, in which a list counts as one value, whether it stands
/// between list marks or is one nested node. The chain outlives the view. A place without a value, or with
/// one of another type, gives null or nothing.
class LispValues {
public:
    explicit LispValues(const HostResultBuffer& chain) : LispValues(chain, 0, chain.size()) {}

    std::size_t count() const noexcept { return places_.size(); }

    const CString* string(std::size_t index) const noexcept;
    /// A 16-bit integer only.
    const std::int16_t* integer(std::size_t index) const noexcept;
    /// A 32-bit integer, which LISP hands over only for numbers that 16 bits do not hold.
    const std::int32_t* longInteger(std::size_t index) const noexcept;
    bool is(std::size_t index, ResultType type) const;
    /// The elements of a list. Of a dotted pair the dot is an element. nil is no list.
    std::optional<LispValues> list(std::size_t index) const;

private:
    struct Place {
        std::size_t node;
        std::size_t end; // behind the value; of a list its end mark, which a broken chain may lack
    };

    LispValues(const HostResultBuffer& chain, std::size_t first, std::size_t end);
    const HostResultBuffer::Node* nodeAt(std::size_t index) const;
    std::size_t closingMark(std::size_t begin, std::size_t end) const;

    const HostResultBuffer* chain_;
    std::vector<Place> places_;
};

} // namespace ryv
