// The package's own settings in the registry, kept by its utility library.
#pragma once

#include "base/strings.h"

namespace ryv {

class PackageSettings {
public:
    virtual ~PackageSettings() = default;

    /// Reads the setting that two names stand for; what each of them means is the library's own. False,
    /// `value` left alone, when there is none.
    virtual bool RyvGetRegSetting(CStringView first, CStringView second, CString& value) = 0;

    /// Writes the setting that the first two strings name in the same way; false when it cannot be written.
    virtual bool RyvSetRegSetting(CStringView first, CStringView second, CStringView value) = 0;
};

/// No setting, and none is taken.
class NullPackageSettings final : public PackageSettings {
public:
    bool RyvGetRegSetting(CStringView, CStringView, CString&) override { return false; }
    bool RyvSetRegSetting(CStringView, CStringView, CStringView) override { return false; }
};

} // namespace ryv
