#include "embedded/lisp/reader.h"

#include "base/text.h"

#include <charconv>
#include <limits>

namespace drafta::lisp {

namespace {

bool isBlank(char16_t unit) {
    return unit <= u' ' || ryv::isSpace(unit) || unit == u'\xFEFF';
}

bool endsAtom(char16_t unit) {
    return isBlank(unit) || unit == u'(' || unit == u')' || unit == u'"' || unit == u'\'' || unit == u';';
}

bool isDigit(char16_t unit) {
    return unit >= u'0' && unit <= u'9';
}

std::size_t digits(ryv::CStringView text, std::size_t& position) {
    const std::size_t start = position;
    while (position < text.size() && isDigit(text[position]))
        ++position;
    return position - start;
}

/// [sign] digits [. digits] [e [sign] digits] with a digit before or behind the point.
bool isNumber(ryv::CStringView text, bool& isReal) {
    std::size_t position = !text.empty() && (text[0] == u'-' || text[0] == u'+') ? 1 : 0;
    std::size_t count = digits(text, position);
    if (position < text.size() && text[position] == u'.') {
        isReal = true;
        ++position;
        count += digits(text, position);
    }
    if (count == 0)
        return false;
    if (position < text.size() && (text[position] == u'e' || text[position] == u'E')) {
        isReal = true;
        ++position;
        if (position < text.size() && (text[position] == u'-' || text[position] == u'+'))
            ++position;
        if (digits(text, position) == 0)
            return false;
    }
    return position == text.size();
}

/// Too large for a real, or too small.
double outOfRange(const std::string& text) {
    const std::size_t exponent = text.find_first_of("eE");
    const bool isSmall = exponent != std::string::npos && text[exponent + 1] == '-';
    const double size = isSmall ? 0 : std::numeric_limits<double>::infinity();
    return text[0] == '-' ? -size : size;
}

} // namespace

std::optional<Value> parseNumber(ryv::CStringView text) {
    bool isReal = false;
    if (!isNumber(text, isReal))
        return std::nullopt;
    const std::string plain = ryv::toAscii(text[0] == u'+' ? text.substr(1) : text);
    const char* const end = plain.data() + plain.size();
    if (std::int32_t integer = 0; !isReal && std::from_chars(plain.data(), end, integer).ec == std::errc())
        return Value::integer(integer);
    double real = 0;
    if (std::from_chars(plain.data(), end, real).ec != std::errc())
        real = outOfRange(plain);
    return Value::real(real);
}

void Reader::fail(ryv::CString message, std::size_t line) {
    line_ = line;
    throw LispError(std::move(message), ErrorKind::syntax);
}

void Reader::skipBlockComment() {
    const std::size_t start = line_;
    const std::size_t end = text_.find(u"|;", position_ + 2);
    if (end == ryv::CStringView::npos)
        fail(u"a comment has no end", start);
    for (; position_ < end + 2; ++position_)
        line_ += std::size_t{text_[position_] == u'\n'};
}

void Reader::skipSpace() {
    while (position_ < text_.size()) {
        const char16_t unit = text_[position_];
        if (unit == u';' && text_.substr(position_, 2) == u";|") {
            skipBlockComment();
        } else if (unit == u';') {
            position_ = std::min(text_.find(u'\n', position_), text_.size());
        } else if (isBlank(unit)) {
            line_ += std::size_t{unit == u'\n'};
            ++position_;
        } else {
            return;
        }
    }
}

std::optional<Value> Reader::next() {
    lines_.clear();
    open_.clear();
    for (;;) {
        skipSpace();
        if (position_ == text_.size()) {
            if (!open_.empty())
                fail(open_.back().isQuote ? u"nothing is quoted" : u"a list has no end", open_.back().line);
            return std::nullopt;
        }
        machine_->poll();
        if (std::optional<Value> form = readToken())
            return form;
    }
}

/// A form when the token ends one.
std::optional<Value> Reader::readToken() {
    switch (text_[position_]) {
    case u'(':
        ++position_;
        open_.push_back({false, line_, {}, nullptr, Open::elements});
        return std::nullopt;
    case u')':
        ++position_;
        return close();
    case u'\'':
        ++position_;
        open_.push_back({true, line_, {}, nullptr, Open::elements});
        return std::nullopt;
    case u'"':
        return deliver(readString());
    default:
        break;
    }
    const bool isDot =
        text_[position_] == u'.' && (position_ + 1 == text_.size() || endsAtom(text_[position_ + 1]));
    if (!isDot)
        return deliver(readAtom());
    if (open_.empty() || !open_.back().last || open_.back().state != Open::elements)
        fail(u"a dot in a wrong place", line_);
    ++position_;
    open_.back().state = Open::dotted;
    return std::nullopt;
}

std::optional<Value> Reader::close() {
    if (open_.empty())
        fail(u"a right parenthesis too many", line_);
    const Open list = open_.back();
    if (list.isQuote || list.state == Open::dotted)
        fail(list.isQuote ? u"nothing is quoted" : u"nothing behind a dot", line_);
    open_.pop_back();
    if (list.first.isCons())
        lines_.emplace(list.first.cell(), list.line);
    return deliver(list.first);
}

/// Hands a value to the innermost list, or out when there is none.
std::optional<Value> Reader::deliver(Value value) {
    while (!open_.empty() && open_.back().isQuote) {
        value = machine_->cons(machine_->symbol(u"QUOTE"), machine_->cons(value, {}));
        lines_.emplace(value.cell(), open_.back().line);
        open_.pop_back();
    }
    if (open_.empty())
        return value;
    append(open_.back(), value);
    return std::nullopt;
}

void Reader::append(Open& list, Value value) {
    if (list.state == Open::ended)
        fail(u"more than one value behind a dot", line_);
    if (list.state == Open::dotted) {
        list.last->cdr = value;
        list.state = Open::ended;
        return;
    }
    const Value cell = machine_->cons(value, {});
    if (list.last)
        list.last->cdr = cell;
    else
        list.first = cell;
    list.last = cell.cell();
}

Value Reader::readString() {
    const std::size_t start = line_;
    ryv::CString text;
    ++position_;
    while (position_ < text_.size() && text_[position_] != u'"') {
        const char16_t unit = text_[position_++];
        line_ += std::size_t{unit == u'\n'};
        if (unit != u'\\')
            text += unit;
        else if (position_ < text_.size())
            text += readEscape();
    }
    if (position_ == text_.size())
        fail(u"a string has no end", start);
    ++position_;
    return machine_->string(text);
}

/// \n, \r, \t, \e (escape), \ooo (octal), \U+hhhh; otherwise the character itself.
char16_t Reader::readEscape() {
    const char16_t unit = text_[position_];
    if (unit >= u'0' && unit <= u'7')
        return readNumber(8, 3, unit);
    ++position_;
    switch (unit) {
    case u'n':
        return u'\n';
    case u'r':
        return u'\r';
    case u't':
        return u'\t';
    case u'e':
        return u'\x1b';
    case u'\n':
        ++line_;
        return unit;
    case u'U':
        if (text_.substr(position_, 1) == u"+") {
            ++position_;
            return readNumber(16, 4, u'+');
        }
        return unit;
    default:
        return unit;
    }
}

/// Up to `most` digits as a character; `otherwise` when there are none.
char16_t Reader::readNumber(int base, std::size_t most, char16_t otherwise) {
    const std::string part = ryv::toAscii(text_.substr(position_, most));
    unsigned number = 0;
    const char* const end = std::from_chars(part.data(), part.data() + part.size(), number, base).ptr;
    position_ += static_cast<std::size_t>(end - part.data());
    return end == part.data() ? otherwise : static_cast<char16_t>(number);
}

Value Reader::readAtom() {
    const std::size_t start = position_;
    while (position_ < text_.size() && !endsAtom(text_[position_]))
        ++position_;
    const ryv::CStringView atom = text_.substr(start, position_ - start);
    if (const std::optional<Value> number = parseNumber(atom))
        return *number;
    const Value symbol = machine_->symbol(atom);
    return symbol.text() == u"NIL" ? Value() : symbol;
}

} // namespace drafta::lisp
