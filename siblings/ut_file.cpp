#include "siblings/ut_file.h"

#include "base/fold.h"
#include "base/paths.h"
#include "base/text.h"

namespace ryv {

CString RyvUtFile::LispToWin(CStringView path) {
    CString result;
    result.reserve(path.size());
    for (const char16_t unit : path) {
        const char16_t written = unit == u'/' ? u'\\' : unit;
        const bool doubled = written == u'\\' && result.size() > 1 && result.back() == u'\\';
        if (!doubled)
            result += written;
    }
    return result;
}

CString RyvUtFile::WinToLisp(CStringView path) {
    return replaceAll(path, u'\\', u'/');
}

CString RyvUtFile::ProjectNameOf(CStringView projectFile) {
    return toUpper(paths::titleOf(projectFile));
}

} // namespace ryv
