#include "base/format.h"

#include "base/text.h"

namespace ryv {

CString format(CStringView pattern, std::initializer_list<FormatArgument> arguments) {
    CString result;
    result.reserve(pattern.size() + 16);
    auto argument = arguments.begin();
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        const char16_t kind = pattern[i] == u'%' && i + 1 < pattern.size() ? pattern[i + 1] : u'\0';
        if (kind == u'%') {
            result += u'%';
            ++i;
        } else if ((kind == u'd' || kind == u's') && argument != arguments.end() &&
                   argument->isNumber() == (kind == u'd')) {
            if (kind == u'd')
                result += toText(argument->number());
            else
                result += argument->text();
            ++argument;
            ++i;
        } else {
            result += pattern[i];
        }
    }
    return result;
}

CString placeholders(CStringView pattern) {
    CString kinds;
    for (std::size_t i = 0; i + 1 < pattern.size(); ++i) {
        if (pattern[i] != u'%')
            continue;
        const char16_t kind = pattern[++i];
        if (kind == u'd' || kind == u's')
            kinds += kind;
    }
    return kinds;
}

} // namespace ryv
