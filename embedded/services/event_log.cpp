#include "embedded/services/event_log.h"

#include "base/paths.h"

#include <algorithm>

namespace drafta {

namespace {

ryv::CString onOneLine(ryv::CString text) {
    std::replace_if(
        text.begin(), text.end(), [](char16_t unit) { return unit < u' ' || (unit >= 0x7F && unit <= 0x9F); },
        u'?');
    return text;
}

} // namespace

void PrintedEventLog::log(ryv::CStringView event, const ryv::CStringArray& details) {
    ryv::CString line = onOneLine(ryv::CString(event));
    for (const ryv::CString& detail : details)
        line += u'\t' + onOneLine(ryv::paths::isRelative(detail) ? detail : shown_(detail));
    print_(line += u'\n');
}

} // namespace drafta
