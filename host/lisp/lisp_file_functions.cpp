#include "host/lisp/lisp_file_functions.h"

#include "base/paths.h"
#include "bridge/platform.h"
#include "manager/existing_files.h"
#include "siblings/copy_file.h"
#include "siblings/ut_file.h"

namespace ryv::lisp_functions {

namespace {

bool hasFolder(CStringView path) {
    return exists(paths::folderOf(path)); // nothing stands at an empty path
}

/// Where the host's search path has a file of that name; empty when it has none.
CString searched(CStringView path) {
    return platform().host.files->findFile(paths::findFileName(path));
}

/// What to copy to; nothing when there is no such place. A target whose folder is missing goes to the first
/// folder of the support path.
std::optional<CString> targetFor(const CString& wanted) {
    if (hasFolder(wanted))
        return wanted;
    const CStringArray support = platform().host.profile->supportFolders();
    if (support.empty())
        return std::nullopt;
    return paths::combine(support[0], paths::findFileName(wanted));
}

/// A path that ends in a separator names no file, whatever stands before it.
bool namesFile(CStringView path) {
    return !path.empty() && path.back() != u'\\';
}

} // namespace

LispAnswer copyFile(const LispValues& arguments) {
    const CString* const from = arguments.string(0);
    const CString* const to = arguments.string(1);
    if (!from || !to)
        return LispAnswer::wrong();
    CString source = RyvUtFile::LispToWin(*from);
    const CString wanted = RyvUtFile::LispToWin(*to);
    if (!namesFile(source) || !namesFile(wanted))
        return LispAnswer::nil();
    if (!exists(source))
        source = searched(source);
    if (source.empty())
        return LispAnswer::nil();
    const std::optional<CString> target = targetFor(wanted);
    return LispAnswer::truth(target && ryv::copyFile(*platform().os.files, source, *target).ok());
}

LispAnswer deleteFile(const LispValues& arguments) {
    const CString* const path = arguments.string(0);
    if (!path)
        return LispAnswer::wrong();
    CString file = RyvUtFile::LispToWin(*path);
    if (!namesFile(file))
        return LispAnswer::nil();
    if (!hasFolder(file))
        file = searched(file);
    return LispAnswer::truth(!file.empty() && platform().os.files->remove(file).ok());
}

} // namespace ryv::lisp_functions
