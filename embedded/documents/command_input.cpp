#include "embedded/documents/command_input.h"

#include "base/text.h"

#include <algorithm>

namespace drafta {

namespace {

constexpr std::size_t npos = ryv::CStringView::npos;

bool isLineEnd(char16_t unit) noexcept {
    return unit == u'\n' || unit == u'\r';
}

std::size_t lineEnd(ryv::CStringView text, std::size_t start) noexcept {
    return text.find_first_of(u"\r\n", start);
}

std::size_t behindLineEnd(ryv::CStringView text, std::size_t end) noexcept {
    return end + (text.substr(end, 2) == u"\r\n" ? 2 : 1);
}

} // namespace

/// Takes one unit, or two that belong together; false when the second one has not come yet.
bool ExpressionScan::step(ryv::CStringView text) noexcept {
    const char16_t unit = text[at_];
    const bool isLast = at_ + 1 == text.size();
    const char16_t next = isLast ? u'\0' : text[at_ + 1];
    const bool pairs = (inside_ == Inside::string && unit == u'\\') ||
                       (inside_ == Inside::code && unit == u';') ||
                       (inside_ == Inside::blockComment && unit == u'|');
    if (pairs && isLast)
        return false;
    ++at_;
    switch (inside_) {
    case Inside::string:
        at_ += unit == u'\\' ? 1 : 0;
        inside_ = unit == u'"' ? Inside::code : Inside::string;
        break;
    case Inside::lineComment:
        inside_ = isLineEnd(unit) ? Inside::code : Inside::lineComment;
        break;
    case Inside::blockComment:
        if (unit == u'|' && next == u';') {
            ++at_;
            inside_ = Inside::code;
        }
        break;
    case Inside::code:
        if (unit == u'"')
            inside_ = Inside::string;
        else if (unit == u';')
            inside_ = next == u'|' ? Inside::blockComment : Inside::lineComment;
        else if (unit == u'(' || unit == u')')
            depth_ += unit == u'(' ? 1 : static_cast<std::size_t>(-1);
        break;
    }
    return true;
}

std::size_t ExpressionScan::end(ryv::CStringView text) noexcept {
    if (at_ > start_ && depth_ == 0)
        return at_;
    while (at_ < text.size() && step(text))
        if (depth_ == 0)
            return at_;
    return npos;
}

void CommandInput::append(ryv::CStringView text, Show show) {
    if (text.empty())
        return;
    if (shows_.empty() || shows_.back().second != show)
        shows_.emplace_back(text_.size(), show);
    text_ += text;
}

CommandInput::Extent CommandInput::nextCommand() const {
    const ryv::CStringView text = text_;
    std::size_t start = position_;
    for (;;) {
        start = text.find_first_not_of(u" \t\r\n", start);
        if (start == npos)
            return {text.size(), npos, false};
        if (text[start] != u';')
            break;
        if (const std::size_t end = lineEnd(text, start); end != npos)
            start = end;
        else
            return {start, npos, false};
    }
    if (text[start] == u'(') {
        if (scan_.start() != start)
            scan_ = ExpressionScan(start);
        return {start, scan_.end(text), true};
    }
    return {start, text.find_first_of(u" \t\r\n", start), false};
}

bool CommandInput::hasCommand() const {
    return nextCommand().end != npos;
}

bool CommandInput::hasOpenExpression() const {
    const Extent next = nextCommand();
    return next.isExpression && next.end == npos;
}

std::optional<InputPiece> CommandInput::takeCommand() {
    const Extent next = nextCommand();
    if (next.end == npos)
        return std::nullopt;
    moveTo(next.start);
    InputPiece result = piece(next.start, next.end, next.isExpression);
    // A word takes the one blank or line end that ended it. An expression ends by itself, but a line end
    // right behind it belongs to it and is no answer to a prompt.
    std::size_t behind = next.end;
    if (behind < text_.size() && isLineEnd(text_[behind]))
        behind = behindLineEnd(text_, behind);
    else if (!next.isExpression)
        ++behind;
    moveTo(behind);
    return result;
}

std::optional<InputPiece> CommandInput::takeLine() {
    const std::size_t end = lineEnd(text_, position_);
    if (end == npos)
        return std::nullopt;
    InputPiece result = piece(position_, end, false);
    result.text = ryv::CString(ryv::trim(result.text));
    result.isLiteral = result.text.size() >= 2 && result.text.front() == u'"' && result.text.back() == u'"';
    if (result.isLiteral)
        result.text = result.text.substr(1, result.text.size() - 2);
    moveTo(behindLineEnd(text_, end));
    return result;
}

void CommandInput::dropBlanks() {
    if (text_.find_first_not_of(u" \t\r\n", position_) == npos)
        clear();
}

void CommandInput::clear() {
    text_.clear();
    shows_.clear();
    position_ = 0;
    scan_ = ExpressionScan();
}

InputPiece CommandInput::piece(std::size_t start, std::size_t end, bool isExpression) const {
    Show show = Show::nothing;
    for (const auto& [from, kind] : shows_)
        if (from <= start)
            show = kind;
    return {text_.substr(start, end - start), show, isExpression, line_, false};
}

void CommandInput::moveTo(std::size_t position) {
    for (; position_ < position; ++position_)
        if (text_[position_] == u'\n' ||
            (text_[position_] == u'\r' && ryv::CStringView(text_).substr(position_ + 1, 1) != u"\n"))
            ++line_;
    while (shows_.size() > 1 && shows_[1].first <= position_)
        shows_.pop_front();
    if (empty())
        clear();
}

} // namespace drafta
