#include "embedded/lisp/builtins/wildcards.h"

#include "base/fold.h"

namespace drafta::lisp {

namespace {

using ryv::CStringView;

bool isDigit(char16_t unit) {
    return unit >= u'0' && unit <= u'9';
}

bool isLetter(char16_t unit) {
    return ryv::toUpper(unit) != ryv::toLower(unit);
}

/// Where the element of the pattern that begins at `index` ends.
std::size_t elementEnd(CStringView pattern, std::size_t index) {
    if (pattern[index] == u'`' && index + 1 < pattern.size())
        return index + 2;
    if (pattern[index] != u'[')
        return index + 1;
    const std::size_t end = pattern.find(u']', index + 1);
    return end == CStringView::npos ? index + 1 : end + 1;
}

/// The inside of brackets.
bool isOneOf(CStringView set, char16_t unit) {
    const bool isOther = set.starts_with(u'~');
    if (isOther)
        set.remove_prefix(1);
    bool found = false;
    for (std::size_t i = 0; i < set.size(); ++i) {
        if (i + 2 < set.size() && set[i + 1] == u'-') {
            found = found || (set[i] <= unit && unit <= set[i + 2]);
            i += 2;
        } else {
            found = found || set[i] == unit;
        }
    }
    return found != isOther;
}

bool matchesElement(CStringView element, char16_t unit) {
    if (element.size() > 1)
        return element[0] == u'`' ? element[1] == unit : isOneOf(element.substr(1, element.size() - 2), unit);
    switch (element[0]) {
    case u'#':
        return isDigit(unit);
    case u'@':
        return isLetter(unit);
    case u'.':
        return !isDigit(unit) && !isLetter(unit);
    case u'?':
        return true;
    default:
        return element[0] == unit;
    }
}

/// Only the last star has to be tried with more: what matched in front of it stays matched.
bool matchesOne(CStringView text, CStringView pattern) {
    std::size_t at = 0;
    std::size_t index = 0;
    std::size_t star = CStringView::npos;
    std::size_t starAt = 0;
    while (at < text.size()) {
        if (index < pattern.size() && pattern[index] == u'*') {
            star = ++index;
            starAt = at;
            continue;
        }
        const std::size_t end = index < pattern.size() ? elementEnd(pattern, index) : index;
        if (end > index && matchesElement(pattern.substr(index, end - index), text[at])) {
            ++at;
            index = end;
        } else if (star != CStringView::npos) {
            index = star;
            at = ++starAt;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of(u'*', index) == CStringView::npos;
}

bool matchesSigned(CStringView text, CStringView pattern) {
    return pattern.starts_with(u'~') ? !matchesOne(text, pattern.substr(1)) : matchesOne(text, pattern);
}

} // namespace

bool matchesWildcards(CStringView text, CStringView patterns) noexcept {
    std::size_t start = 0;
    for (std::size_t i = 0; i < patterns.size(); i = elementEnd(patterns, i)) {
        if (patterns[i] != u',')
            continue;
        if (matchesSigned(text, patterns.substr(start, i - start)))
            return true;
        start = i + 1;
    }
    return matchesSigned(text, patterns.substr(start));
}

} // namespace drafta::lisp
