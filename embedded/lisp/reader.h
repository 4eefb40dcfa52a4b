// From text to lists.
#pragma once

#include "embedded/lisp/machine.h"

namespace drafta::lisp {

/// Reads one form after the other. Depth costs memory only. Nothing is collected meanwhile; the forms read
/// are the caller's to keep.
class Reader {
public:
    /// The text outlives the reader.
    Reader(Machine& machine, ryv::CStringView text) noexcept : machine_(&machine), text_(text) {}

    /// The next form, or nothing at the end. Throws LispError of the kind `syntax`.
    std::optional<Value> next();

    /// The lines that the lists of the form read last begin on.
    const Lines& lines() const noexcept { return lines_; }
    /// The line that the reader has come to, or after an error the one that it is on.
    std::size_t line() const noexcept { return line_; }

private:
    /// A list that has begun, or a quote that waits for what it quotes.
    struct Open {
        bool isQuote = false;
        std::size_t line = 0;
        Value first;
        Cons* last = nullptr;
        enum { elements, dotted, ended } state = elements;
    };

    void skipSpace();
    void skipBlockComment();
    std::optional<Value> readToken();
    std::optional<Value> close();
    std::optional<Value> deliver(Value value);
    void append(Open& list, Value value);
    Value readString();
    char16_t readEscape();
    char16_t readNumber(int base, std::size_t most, char16_t otherwise);
    Value readAtom();
    [[noreturn]] void fail(ryv::CString message, std::size_t line);

    Machine* machine_;
    ryv::CStringView text_;
    std::size_t position_ = 0;
    std::size_t line_ = 1;
    std::vector<Open> open_;
    Lines lines_;
};

/// The number that the whole of a text is as LISP writes it: an integer, or a real when it has a point or an
/// exponent or does not fit 32 bits.
std::optional<Value> parseNumber(ryv::CStringView text);

} // namespace drafta::lisp
