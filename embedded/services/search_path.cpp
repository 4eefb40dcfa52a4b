#include "embedded/services/search_path.h"

#include "base/paths.h"
#include "base/text.h"

namespace drafta {

bool SearchPath::isFile(ryv::CStringView path) {
    ryv::FileInformation information;
    return !path.empty() && path.size() <= ryv::paths::maxLength &&
           files_.information(path, information).ok() && information.isRegular;
}

ryv::CString SearchPath::findFile(ryv::CStringView name) {
    const ryv::CString wanted = ryv::replaceAll(name, u'/', u'\\');
    if (wanted.empty())
        return {};
    if (wanted.find_first_of(u"\\:") != ryv::CString::npos)
        return isFile(wanted) ? wanted : ryv::CString();
    const ryv::CString beside = findIn(documentFolder_(), wanted);
    return beside.empty() ? findAmongFolders(wanted) : beside;
}

ryv::CString SearchPath::findAmongFolders(ryv::CStringView name) {
    for (const ryv::CString& folder : folders_)
        if (ryv::CString path = findIn(folder, name); !path.empty())
            return path;
    return {};
}

ryv::CString SearchPath::findIn(ryv::CStringView folder, ryv::CStringView name) {
    const std::optional<ryv::CString> path =
        folder.empty() ? std::nullopt : ryv::paths::combine(folder, name);
    return path && isFile(*path) ? *path : ryv::CString();
}

} // namespace drafta
