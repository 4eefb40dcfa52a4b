#include "embedded/drawings/plain_text.h"
#include "base/fold.h"

namespace drafta {

using ryv::CString;
using ryv::CStringView;

namespace {

bool isDigit(char16_t unit) noexcept {
    return unit >= u'0' && unit <= u'9';
}

/// What stands for the code behind "%%" at the begin of `rest`, and how long that is; nothing for no code.
struct PercentCode {
    std::size_t length = 0;
    char16_t unit = 0; ///< 0: nothing
};

PercentCode percentCode(CStringView rest) {
    if (rest.empty())
        return {};
    switch (ryv::toLower(rest[0])) {
    case u'c':
        return {1, u'\u2300'};
    case u'd':
        return {1, u'\u00B0'};
    case u'p':
        return {1, u'\u00B1'};
    case u'%':
        return {1, u'%'};
    case u'u':
    case u'o':
    case u'k':
        return {1, 0};
    default:
        break;
    }
    if (rest.size() < 3 || !isDigit(rest[0]) || !isDigit(rest[1]) || !isDigit(rest[2]))
        return {};
    const int number = (rest[0] - u'0') * 100 + (rest[1] - u'0') * 10 + (rest[2] - u'0');
    return {3, static_cast<char16_t>(number < u' ' ? u' ' : number)};
}

/// Takes a formatted text apart from left to right.
class Paragraphs {
public:
    explicit Paragraphs(CStringView text) : text_(text) {}

    CString plain() {
        while (at_ < text_.size()) {
            const char16_t unit = text_[at_++];
            if (unit == u'\\' && at_ < text_.size())
                takeCode(text_[at_++]);
            else if (unit == u'^' && at_ < text_.size())
                takeCaret(text_[at_++]);
            else if (unit != u'{' && unit != u'}')
                out_ += unit < u' ' ? u' ' : unit;
        }
        return std::move(out_);
    }

private:
    void takeCode(char16_t code) {
        switch (code) {
        case u'P':
        case u'X':
        case u'N':
            out_ += u'\n';
            return;
        case u'~':
            out_ += u'\u00A0';
            return;
        case u'S':
            return takeStack();
        case u'L':
        case u'l':
        case u'O':
        case u'o':
        case u'K':
        case u'k':
            return;
        case u'A':
        case u'C':
        case u'c':
        case u'F':
        case u'f':
        case u'H':
        case u'p':
        case u'Q':
        case u'T':
        case u'W':
            skipPastSemicolon();
            return;
        default:
            out_ += code; // an escaped sign, or a code that nobody knows
        }
    }

    /// A code with a value goes up to its semicolon; without one it is only the letter, so that a damaged
    /// text loses nothing.
    CStringView skipPastSemicolon() {
        const std::size_t end = text_.find(u';', at_);
        if (end == CStringView::npos)
            return {};
        const CStringView value = text_.substr(at_, end - at_);
        at_ = end + 1;
        return value;
    }

    void takeStack() {
        for (const char16_t unit : skipPastSemicolon())
            if (unit != u'\\')
                out_ += unit == u'^' || unit == u'#' ? u'/' : unit;
    }

    void takeCaret(char16_t code) {
        if (code == u'J' || code == u'M')
            out_ += u'\n';
        else if (code == u'I')
            out_ += u' ';
        else if (code == u' ')
            out_ += u'^';
        else
            out_.append({u'^', code});
    }

    CStringView text_;
    std::size_t at_ = 0;
    CString out_;
};

} // namespace

CString plainLine(CStringView text) {
    CString plain;
    plain.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        if (text.substr(at, 2) == u"%%")
            if (const PercentCode code = percentCode(text.substr(at + 2)); code.length > 0) {
                if (code.unit != 0)
                    plain += code.unit;
                at += 2 + code.length;
                continue;
            }
        plain += text[at++];
    }
    return plain;
}

CString plainParagraphs(CStringView text) {
    return plainLine(Paragraphs(text).plain());
}

} // namespace drafta
