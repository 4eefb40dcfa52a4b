// Paths that need the system, on POSIX systems.
#pragma once

#include "embedded/os/path_mapper.h"
#include "platform/os/system_paths.h"

namespace drafta {

class PosixPaths final : public ryv::SystemPaths {
public:
    /// The mapper has to outlive this object.
    explicit PosixPaths(const PathMapper& mapper) noexcept : mapper_(&mapper) {}

    ryv::CString currentFolder() override;
    ryv::CString fullPath(ryv::CStringView path) override;
    /// TMPDIR when it names an absolute folder, else `\tmp`.
    ryv::CString temporaryFolder() override;
    ryv::CString fromNative(std::string_view native) override;
    /// Text that has no native counterpart (a drive that nobody mapped, a NUL) comes back as it stands, for
    /// showing; it is no path that could be opened.
    std::string toNative(ryv::CStringView path) override;

private:
    const PathMapper* mapper_;
};

} // namespace drafta
