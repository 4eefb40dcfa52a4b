// The package's own settings as values in the registry.
#pragma once

#include "platform/os/registry.h"
#include "platform/services/package_settings.h"

namespace drafta {

/// Of the two names that stand for a setting the first is a key below a root, which may be empty, and the
/// second a string value in it.
class RegistrySettings final : public ryv::PackageSettings {
public:
    /// `registry` outlives the object; `root` is a key, made when something is first written.
    RegistrySettings(ryv::Registry& registry, ryv::CString root)
        : registry_(registry), root_(std::move(root)) {}

    bool RyvGetRegSetting(ryv::CStringView first, ryv::CStringView second, ryv::CString& value) override;
    bool RyvSetRegSetting(ryv::CStringView first, ryv::CStringView second, ryv::CStringView value) override;

private:
    ryv::CString keyOf(ryv::CStringView first) const;

    ryv::Registry& registry_;
    ryv::CString root_;
};

} // namespace drafta
