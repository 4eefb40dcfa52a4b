// The current user's registry hive in one text file.
#pragma once

#include "embedded/registry/hive.h"
#include "platform/os/registry.h"
#include "siblings/file_content.h"

#include <functional>

namespace drafta {

/// Every change is saved at once and atomically, on top of what other processes saved meanwhile: two hosts
/// with one hive lose nothing. Reading notices when the file was changed outside. A missing file is an empty
/// hive; its folder is made for the first change. A file that cannot be understood (hive_text.h) is never
/// overwritten, and everything fails with `failed` until somebody mends or removes it. `denied` when the
/// system or the file's protection says so. Either is told once, until a change could be saved.
class FileRegistry final : public ryv::Registry {
public:
    using Warn = std::function<void(ryv::CStringView)>;

    /// `files` outlives the object; `path` is module text. `warn` gets a line without its end, which begins
    /// with the path: why settings are not read, or not kept.
    FileRegistry(ryv::Files& files, ryv::CString path, Warn warn = nullptr)
        : files_(files), path_(std::move(path)), warn_(std::move(warn)) {}

    ryv::RegistryStatus findKey(ryv::CStringView key) override;
    ryv::RegistryStatus createKey(ryv::CStringView key) override;
    ryv::RegistryStatus readString(ryv::CStringView key, ryv::CStringView name, ryv::CString& value) override;
    ryv::RegistryStatus readInteger(
        ryv::CStringView key, ryv::CStringView name, std::uint32_t& value) override;
    ryv::RegistryStatus writeString(
        ryv::CStringView key, ryv::CStringView name, ryv::CStringView value) override;
    ryv::RegistryStatus writeInteger(
        ryv::CStringView key, ryv::CStringView name, std::uint32_t value) override;

private:
    bool isUpToDate();
    ryv::RegistryStatus load();
    ryv::FileStatus save();
    void tell(ryv::CStringView reason);
    ryv::FileStatus makeFolders(ryv::CStringView folder);
    template <class Change>
    ryv::RegistryStatus change(Change change);
    template <class T>
    ryv::RegistryStatus read(ryv::CStringView key, ryv::CStringView name, T& value);
    ryv::RegistryStatus write(ryv::CStringView key, ryv::CStringView name, const Hive::Value& value);

    ryv::Files& files_;
    ryv::CString path_;
    Warn warn_;
    bool isTold_ = false;
    Hive hive_;
    ryv::Fingerprint fingerprint_; // of the file that hive_ was read from or written to
    bool isLoaded_ = false;        // hive_ is what the file holds, as far as we know
};

} // namespace drafta
