// Text on its way to the command line: typed, queued, or from a script.
#pragma once

#include "base/strings.h"

#include <deque>
#include <optional>

namespace drafta {

/// What the command line shows of its input.
enum class Show {
    nothing,
    values,    ///< what expressions give; the input itself is on the screen already
    everything ///< also the input
};

/// What was taken from the input.
struct InputPiece {
    ryv::CString text;
    Show show = Show::nothing;
    bool isExpression = false; ///< a LISP expression, "(...)"
    int line = 0;              ///< the line that it began in, from 1
    bool isLiteral = false;    ///< it stood between quotes, or was handed over as it is: never run as code
};

/// Looks for the parenthesis that closes an expression; strings, comments and character escapes are LISP's.
/// Goes on where it stopped when more text has come, so that an expression over many lines is looked at once.
class ExpressionScan {
public:
    explicit ExpressionScan(std::size_t start = 0) noexcept : start_(start), at_(start) {}

    std::size_t start() const noexcept { return start_; }

    /// The place behind the closing parenthesis, or npos when it has not come yet. `text` is what it was,
    /// with perhaps more behind it.
    std::size_t end(ryv::CStringView text) noexcept;

private:
    enum class Inside { code, string, lineComment, blockComment };
    bool step(ryv::CStringView text) noexcept;

    std::size_t start_;
    std::size_t at_;
    std::size_t depth_ = 0;
    Inside inside_ = Inside::code;
};

/// Text is read as the place asks: a command prompt takes a word or an expression, a prompt for a text takes
/// the rest of the line. "\r", "\n" and "\r\n" end lines.
class CommandInput {
public:
    /// `show` holds for what begins in this text.
    void append(ryv::CStringView text, Show show);

    /// The next word, up to a blank or the line's end; or the next expression, up to the parenthesis that
    /// closes it, over as many lines as that takes. Empty lines and lines that begin with ";" are passed
    /// over. Nothing, with the input as it was, when what is there is not complete yet.
    std::optional<InputPiece> takeCommand();

    /// The rest of the line without blanks at its ends, and without the double quotes when it stands between
    /// two of them; may be empty. Nothing when the line has no end yet.
    std::optional<InputPiece> takeLine();

    /// True when takeCommand() would give something.
    bool hasCommand() const;

    /// True when an expression has begun that is not closed.
    bool hasOpenExpression() const;

    /// Forgets what is there when it is nothing but blanks and line ends.
    void dropBlanks();

    bool empty() const noexcept { return position_ == text_.size(); }
    void clear();

private:
    struct Extent {
        std::size_t start = 0; ///< both are places in text_
        std::size_t end = 0;   ///< behind the piece; `npos` when it is not complete
        bool isExpression = false;
    };
    Extent nextCommand() const;
    InputPiece piece(std::size_t start, std::size_t end, bool isExpression) const;
    void moveTo(std::size_t position);

    mutable ExpressionScan scan_; // of the expression that the input begins with

    ryv::CString text_;
    std::size_t position_ = 0;                       // what is before it was taken
    std::deque<std::pair<std::size_t, Show>> shows_; // from this unit of text_ on
    int line_ = 1;
};

} // namespace drafta
