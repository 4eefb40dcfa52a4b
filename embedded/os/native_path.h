// Paths of this machine as the bytes that its system calls take.
#pragma once

#include "platform/os/files.h"

#include <string>
#include <string_view>
#include <vector>

namespace drafta {

/// The components of a native path; doubled separators and "." are left out, ".." is kept.
std::vector<std::string_view> nativeComponents(std::string_view path);

/// `folder` with `name` behind it; exactly one "/" between them.
std::string joinNative(std::string_view folder, std::string_view name);

/// The folder that holds a native path without a separator at its end, "/" for "/" itself, and its last
/// component.
std::string_view nativeFolder(std::string_view path);
std::string_view nativeName(std::string_view path);

/// True when something stands at the path; a symbolic link counts, wherever it leads.
bool existsNative(const std::string& path);

/// The current folder; empty when it was removed or cannot be read.
std::string currentNativeFolder();

/// An absolute path without "." and "..", a relative one taken from the current folder. Symbolic links keep
/// their names, except before "..": the parent of a link's target is what the kernel would go to, so there
/// the link is followed. Empty when the current folder is needed and cannot be told.
std::string absoluteNative(std::string_view path);

/// The path with all symbolic links followed. When nothing stands there, the path at which a file would be
/// made: links of its folder, and its own link that leads nowhere yet, are followed. `badName` when links
/// lead in a circle.
ryv::FileStatus resolveNative(const std::string& path, std::string& resolved);

} // namespace drafta
