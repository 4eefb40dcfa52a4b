// Paths that need the system: the current folder, the temporary folder, and the border between the names of
// the machine's file system and the module's own path text.
#pragma once

#include "base/strings.h"

#include <string>
#include <string_view>

namespace ryv {

class SystemPaths {
public:
    virtual ~SystemPaths() = default;

    /// The folder that relative paths start from, as module text; empty when it cannot be told.
    virtual CString currentFolder() = 0;

    /// An absolute path in its canonical form; a relative one is taken from the current folder.
    virtual CString fullPath(CStringView path) = 0;

    /// The folder for files of no lasting value.
    virtual CString temporaryFolder() = 0;

    /// A path as people and other programs of this machine write it, as absolute module text. Bytes that are
    /// not valid in the machine's encoding survive the way to text and back.
    virtual CString fromNative(std::string_view native) = 0;

    /// Module text as a path that this machine's programs understand; for opening files and for showing to
    /// people.
    virtual std::string toNative(CStringView path) = 0;
};

/// Everything lies in the root folder "\".
class NullSystemPaths final : public SystemPaths {
public:
    CString currentFolder() override;
    CString fullPath(CStringView path) override;
    CString temporaryFolder() override;
    CString fromNative(std::string_view native) override;
    std::string toNative(CStringView path) override;
};

} // namespace ryv
