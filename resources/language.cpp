#include "resources/language.h"

#include "base/text.h"

#include <optional>

namespace ryv {

namespace {

Language& chosen() noexcept {
    static Language language = Language::english;
    return language;
}

/// "de", "de_AT.UTF-8", "de@euro" are German; "den" is not.
bool speaks(CStringView locale, CStringView code) {
    return locale.starts_with(code) &&
           (locale.size() == code.size() ||
               CStringView(u"_.@").find(locale[code.size()]) != CStringView::npos);
}

bool isC(CStringView locale) {
    return locale.empty() || locale == u"C" || locale.starts_with(u"C.") || locale == u"POSIX";
}

std::optional<Language> knownLanguage(CStringView locale) {
    for (const Language each : {Language::english, Language::german})
        if (speaks(locale, codeOf(each)) || (each == Language::english && isC(locale) && !locale.empty()))
            return each;
    return std::nullopt;
}

CString localeOf(Environment& environment) {
    for (const CStringView name : {u"LC_ALL", u"LC_MESSAGES", u"LANG"})
        if (CString value = environment.variable(name); !value.empty())
            return value;
    return {};
}

} // namespace

Language language() noexcept {
    return chosen();
}

void setLanguage(Language language) noexcept {
    chosen() = language;
}

Language languageOf(Environment& environment) {
    const CString locale = localeOf(environment);
    if (isC(locale))
        return Language::english;
    const CString preferred = environment.variable(u"LANGUAGE");
    for (CStringView rest = preferred; !rest.empty();) {
        const std::size_t end = std::min(rest.find(u':'), rest.size());
        if (const std::optional<Language> known = knownLanguage(rest.substr(0, end)))
            return *known;
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return preferred.empty() ? knownLanguage(locale).value_or(Language::english) : Language::english;
}

CStringView codeOf(Language language) noexcept {
    return language == Language::german ? u"de" : u"en";
}

} // namespace ryv
