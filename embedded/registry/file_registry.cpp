#include "embedded/registry/file_registry.h"

#include "base/paths.h"
#include "base/text.h"
#include "embedded/registry/hive_text.h"
#include "siblings/atomic_file.h"

#include <utility>

namespace drafta {

using ryv::CString;
using ryv::CStringView;
using ryv::FileError;
using ryv::FileStatus;
using ryv::RegistryStatus;

namespace {

// Each further attempt means that another process has saved a change of its own meanwhile.
constexpr int saveAttempts = 100;

RegistryStatus statusOf(const FileStatus& status) {
    if (status.ok())
        return RegistryStatus::ok;
    const bool denied = status.error == FileError::denied || status.error == FileError::readOnly;
    return denied ? RegistryStatus::denied : RegistryStatus::failed;
}

} // namespace

void FileRegistry::tell(CStringView reason) {
    if (warn_ && !std::exchange(isTold_, true))
        warn_(path_ + u": " + CString(reason));
}

/// Whether the file is the one that was read. What time and size cannot tell, the guard of the next save
/// will.
bool FileRegistry::isUpToDate() {
    ryv::FileInformation found;
    const FileStatus status = files_.information(path_, found);
    if (!isLoaded_ || !status.ok())
        return isLoaded_ && status.error == FileError::missing && !fingerprint_.present;
    return fingerprint_.present && found.device == fingerprint_.device && found.inode == fingerprint_.inode &&
           found.size == fingerprint_.size && found.modifiedNanoseconds == fingerprint_.modifiedNanoseconds;
}

RegistryStatus FileRegistry::load() {
    if (isUpToDate())
        return RegistryStatus::ok;
    isLoaded_ = false;
    ryv::ByteBuffer bytes;
    const FileStatus status = ryv::readWholeFile(files_, path_, bytes, fingerprint_);
    const bool isMissing = status.error == FileError::missing;
    if (!status.ok() && !isMissing) {
        tell(ryv::fromAscii(describe(status.error)) + u"; settings are not read");
        return statusOf(status);
    }
    std::optional<Hive> hive = isMissing ? Hive() : parseHive(bytes.view());
    if (!hive) {
        tell(u"it is damaged; settings are not read and not kept until it is mended or removed");
        return RegistryStatus::failed;
    }
    hive_ = *std::move(hive);
    isLoaded_ = true;
    return RegistryStatus::ok;
}

FileStatus FileRegistry::makeFolders(CStringView folder) {
    ryv::FileInformation found;
    if (files_.information(folder, found).error != FileError::missing)
        return {};
    const CString parent = ryv::paths::folderOf(folder);
    if (parent.size() < folder.size())
        if (const FileStatus status = makeFolders(parent); !status.ok())
            return status;
    const FileStatus status = files_.createFolder(folder);
    return status.error == FileError::exists ? FileStatus{} : status; // another process was faster
}

FileStatus FileRegistry::save() {
    if (!fingerprint_.present)
        if (const FileStatus status = makeFolders(ryv::paths::folderOf(path_)); !status.ok())
            return status;
    const std::string bytes = printHive(hive_);
    const ryv::SaveResult result = ryv::saveAtomically(files_, {path_, bytes, fingerprint_});
    if (!result.replaced)
        return result.status;
    fingerprint_ = result.written;
    return {}; // everybody sees the change, also when it may not survive a power cut
}

/// Makes a change and saves it. `change` answers ok when there is something to save, and is called again on
/// what another process saved in between.
template <class Change>
RegistryStatus FileRegistry::change(Change change) {
    for (int attempt = 0; attempt < saveAttempts; ++attempt) {
        if (const RegistryStatus status = load(); status != RegistryStatus::ok)
            return status;
        bool isChanged = false;
        if (const RegistryStatus status = change(hive_, isChanged);
            status != RegistryStatus::ok || !isChanged)
            return status;
        const FileStatus saved = save();
        isLoaded_ = saved.ok();
        if (saved.ok())
            isTold_ = false;
        else if (saved.error != FileError::changedOutside)
            tell(ryv::fromAscii(describe(saved.error)) + u"; settings are not kept");
        if (saved.error != FileError::changedOutside)
            return statusOf(saved);
    }
    return RegistryStatus::failed;
}

RegistryStatus FileRegistry::findKey(CStringView key) {
    const RegistryStatus status = load();
    if (status != RegistryStatus::ok)
        return status;
    return hive_.hasKey(key) ? RegistryStatus::ok : RegistryStatus::missing;
}

RegistryStatus FileRegistry::createKey(CStringView key) {
    return change([key](Hive& hive, bool& isChanged) {
        isChanged = hive.makeKey(key);
        return RegistryStatus::ok;
    });
}

template <class T>
RegistryStatus FileRegistry::read(CStringView key, CStringView name, T& value) {
    if (const RegistryStatus status = load(); status != RegistryStatus::ok)
        return status;
    const Hive::Value* const found = hive_.find(key, name);
    if (!found)
        return RegistryStatus::missing;
    const T* const typed = std::get_if<T>(found);
    if (typed)
        value = *typed;
    return typed ? RegistryStatus::ok : RegistryStatus::wrongType;
}

RegistryStatus FileRegistry::write(CStringView key, CStringView name, const Hive::Value& value) {
    return change([&](Hive& hive, bool& isChanged) {
        if (!hive.hasKey(key))
            return RegistryStatus::missing;
        isChanged = hive.set(key, name, value);
        return RegistryStatus::ok;
    });
}

RegistryStatus FileRegistry::readString(CStringView key, CStringView name, CString& value) {
    return read(key, name, value);
}

RegistryStatus FileRegistry::readInteger(CStringView key, CStringView name, std::uint32_t& value) {
    return read(key, name, value);
}

RegistryStatus FileRegistry::writeString(CStringView key, CStringView name, CStringView value) {
    return write(key, name, CString(value));
}

RegistryStatus FileRegistry::writeInteger(CStringView key, CStringView name, std::uint32_t value) {
    return write(key, name, value);
}

} // namespace drafta
