#include "ui/dialogs/creation/file_fields.h"

#include "base/encoding.h"
#include "base/fold.h"
#include "base/paths.h"
#include "base/text.h"
#include "bridge/platform.h"
#include "resources/messages.h"

namespace ryv {

namespace {

constexpr CStringView settingsKey = u"\\Settings\\";

/// Empty when the host cannot tell where its profile keeps its settings.
CString keyOf(CStringView dialogKey) {
    const CString profile = platform().host.profile->profileKey();
    return profile.empty() ? CString() : profile + CString(settingsKey) + CString(dialogKey);
}

CString firstChosen(const FileRequest& request) {
    const std::vector<CString> chosen = platform().ui->chooseFiles(request);
    return chosen.empty() ? CString() : chosen.front();
}

} // namespace

CString typedPath(CStringView text) {
    const CStringView path = trim(text);
    if (path.starts_with(u'/'))
        return platform().os.paths->fromNative(nameToBytes(path));
    return replaceAll(path, u'/', u'\\');
}

CString pathIn(CStringView folder, CStringView name) {
    if (folder.empty() || name.empty())
        return CString(folder.empty() ? name : folder);
    const std::optional<CString> joined = paths::append(folder, name);
    return joined ? *joined : CString(folder) + u'\\' + CString(name);
}

bool isQualified(CStringView path) {
    if (path.empty())
        return false;
    const CString full = platform().os.paths->fullPath(path);
    return full.size() <= longestQualifiedPath && equalNoCase(full, path);
}

bool isFile(CStringView path) {
    FileInformation found;
    return !path.empty() && platform().os.files->information(path, found).ok() && !found.isFolder;
}

CString rememberedFile(CStringView dialogKey, CStringView name) {
    const CString key = keyOf(dialogKey);
    CString file;
    if (!key.empty())
        static_cast<void>(platform().os.registry->readString(key, name, file));
    return file;
}

void rememberFile(CStringView dialogKey, CStringView name, CStringView file) {
    const CString key = keyOf(dialogKey);
    Registry& registry = *platform().os.registry;
    if (!key.empty() && registry.createKey(key) == RegistryStatus::ok)
        static_cast<void>(registry.writeString(key, name, file));
}

CString chooseFolder(int title, CStringView start) {
    FileRequest request;
    request.title = title;
    request.text = messageText(title);
    request.folder = start;
    request.choosesFolder = true;
    return firstChosen(request);
}

CString chooseFile(int title, CStringView extension, CStringView start) {
    FileRequest request;
    request.title = title;
    request.text = messageText(title);
    request.folder = paths::folderOf(start);
    request.extension = extension;
    return firstChosen(request);
}

} // namespace ryv
