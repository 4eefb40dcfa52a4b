// A value of the LISP as native code sees it: one word, copied freely.
//
// Values made of cells (lists, strings, symbols, functions ...) belong to the interpreter's heap. The heap is
// collected only while LISP code runs: a value that native code holds stays valid until that code lets the
// interpreter evaluate, load or call something, and from then on only if it is part of the arguments, the
// value of a symbol, or held by a Root (embedded/lisp/root.h).
#pragma once

#include "base/strings.h"

#include <bit>
#include <cstdint>
#include <span>

namespace drafta::lisp {

struct Cons;
struct Object;

enum class Kind : std::uint8_t {
    nil,      ///< false, and the empty list
    integer,  ///< 32-bit
    real,     ///< double
    cons,     ///< a pair; a list is a chain of these
    string,   ///< UTF-16 text
    symbol,   ///< T is one, nil is not
    function, ///< native or written in LISP
    file,     ///< made by (open ...)
    opaque,   ///< something of the host's own: a type name and a number
    failure   ///< what (vl-catch-all-apply ...) gives in place of a result
};

class Value {
public:
    /// nil
    constexpr Value() noexcept = default;

    static constexpr Value integer(std::int32_t number) noexcept {
        return Value(integerTag | static_cast<std::uint32_t>(number));
    }
    static Value real(double number) noexcept {
        return Value((number != number ? plainNan : std::bit_cast<std::uint64_t>(number)) + realOffset);
    }

    Kind kind() const noexcept;
    bool isNil() const noexcept { return bits_ == 0; }
    bool isInteger() const noexcept { return bits_ >= integerTag; }
    bool isReal() const noexcept { return isNumber() && !isInteger(); }
    bool isNumber() const noexcept { return (bits_ & integerTag) != 0; }
    bool isCons() const noexcept { return (bits_ & (integerTag | consTag)) == consTag; }
    /// nil or a pair
    bool isList() const noexcept { return isNil() || isCons(); }
    bool isString() const noexcept { return kind() == Kind::string; }
    bool isSymbol() const noexcept { return kind() == Kind::symbol; }
    bool isFunction() const noexcept { return kind() == Kind::function; }

    /// The number of an integer.
    std::int32_t asInteger() const noexcept { return static_cast<std::int32_t>(bits_); }
    /// The number of a real.
    double asReal() const noexcept { return std::bit_cast<double>(bits_ - realOffset); }
    /// The number of an integer or a real.
    double asNumber() const noexcept { return isInteger() ? asInteger() : asReal(); }

    /// The halves of a pair; nil for nil. The value has to be a list.
    Value car() const noexcept;
    Value cdr() const noexcept;

    /// The text of a string, the name of a symbol (in upper case), the type name of an opaque value; empty
    /// for all others. The view is valid for as long as the value is.
    ryv::CStringView text() const noexcept;

    /// The number of an opaque value; 0 for all others.
    std::uint64_t opaqueId() const noexcept;

    /// The same word: equal numbers of one kind, the same cell. For looking into lists and strings there is
    /// equal() in embedded/lisp/equality.h.
    friend bool operator==(Value a, Value b) noexcept { return a.bits_ == b.bits_; }

    /// For the interpreter's own use.
    static Value of(const Cons* cell) noexcept {
        return Value(reinterpret_cast<std::uintptr_t>(cell) | consTag);
    }
    static Value of(const Object* object) noexcept { return Value(reinterpret_cast<std::uintptr_t>(object)); }
    Cons* cell() const noexcept { return reinterpret_cast<Cons*>(bits_ - consTag); }
    Object* object() const noexcept { return reinterpret_cast<Object*>(bits_); }
    bool isObject() const noexcept { return bits_ != 0 && (bits_ & (integerTag | consTag)) == 0; }
    std::uint64_t bits() const noexcept { return bits_; }

private:
    // Addresses leave the upper 15 bits free. An integer has them all set, a real is its bits plus an offset
    // that keeps it away from both; the lowest bit tells cells from other objects.
    static constexpr std::uint64_t integerTag = 0xFFFE'0000'0000'0000;
    static constexpr std::uint64_t realOffset = 0x0002'0000'0000'0000;
    static constexpr std::uint64_t plainNan = 0x7FF8'0000'0000'0000;
    static constexpr std::uint64_t consTag = 1;

    explicit constexpr Value(std::uint64_t bits) noexcept : bits_(bits) {}

    std::uint64_t bits_ = 0;
};

/// A pair as it lies in the heap. Pairs never change once they are made, so that no list is circular.
struct Cons {
    Value car;
    Value cdr;
};

inline Value Value::car() const noexcept {
    return isCons() ? cell()->car : Value();
}

inline Value Value::cdr() const noexcept {
    return isCons() ? cell()->cdr : Value();
}

/// The arguments of a call. They are safe from collection until it returns.
using Arguments = std::span<const Value>;

} // namespace drafta::lisp
