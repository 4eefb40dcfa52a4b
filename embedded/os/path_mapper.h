// Module text and native paths of this machine, one turned into the other.
//
// `\home\u\A.kqp` is /home/u/A.kqp. A drive letter is a folder named beforehand, and so is a network path
// `\\server\share`. Paths without a root start from the current folder. "/" separates like "\", as on the
// platform that the module's path rules come from, and "." and ".." are folded by the text alone, as they are
// there: above the root of a path there is nothing.
//
// Names are bytes here and text there. Bytes that are not valid UTF-8 survive as nameFromBytes has it, and a
// "\" inside a native name, which would read as a separator, is the lone surrogate U+DC5C in text. So every
// native path comes back from its text byte for byte.
#pragma once

#include "base/strings.h"
#include "embedded/os/folder_names.h"
#include "platform/os/files.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace drafta {

class PathMapper {
public:
    /// Lets a drive letter (A to Z, case ignored; others are refused with false) stand for a native folder; a
    /// relative one is taken from the current folder now. The folder need not exist. An earlier one is
    /// replaced.
    bool mapDrive(char16_t letter, std::string_view folder);

    /// Lets a network path (`\\server\share`, compared without case; anything else is refused with false)
    /// stand for a native folder, as mapDrive does.
    bool mapShare(ryv::CStringView root, std::string_view folder);

    /// The native path of module text, absolute. Each component is looked up exactly and, only when nothing
    /// of that name exists, without regard to case; among several such names the first in byte order is
    /// taken. From the first component on that is not there at all, the text's own spelling stands. Fails
    /// with `badName` when the text is empty, holds a NUL or is a network path that nobody mapped, and with
    /// `missing` for a drive that nobody mapped; `native` is empty then.
    ryv::FileStatus toNative(ryv::CStringView path, std::string& native) const;

    /// The same without any look-up: every component as the text spells it.
    ryv::FileStatus toNativeAsSpelled(ryv::CStringView path, std::string& native) const;

    /// The absolute module text of a native path; always begins with one "\", mapped folders do not count
    /// here. A relative path starts from the current folder; "." and ".." are folded as the kernel would
    /// (absoluteNative). An empty path gives empty text, as does a relative one when the current folder
    /// cannot be told.
    ryv::CString fromNative(std::string_view native) const;

private:
    struct Split;
    ryv::FileStatus split(ryv::CStringView path, Split& result) const;

    std::shared_ptr<FolderNames> names_ = std::make_shared<FolderNames>();
    std::map<ryv::CString, std::string> roots_; // folded "C:" or "\\SERVER\SHARE" to native folder
};

/// One component: its text and its bytes.
ryv::CString componentFromNative(std::string_view name);
std::string componentToNative(ryv::CStringView component);

} // namespace drafta
