// The platform's rules for paths written as text, with "\" between components. They never touch the file
// system.
//
// A path begins with a root: a drive ("C:\", or "C:" for the drive's current folder), a network share
// ("\\server\share"), or "\" alone, which is the common root of all paths of systems without drives.
// Components may hold any unit but "\". All operations take time in proportion to the lengths of their
// arguments.
//
// combine, append, relativePathTo and renameExtension work as functions with buffers of 260 units do: a
// result never has more than 259 units, and a longer one is a failure. The rules are held to the recorded
// cases in tests/base/vectors/.
#pragma once

#include "base/strings.h"

#include <optional>

namespace ryv::paths {

/// The longest result of the operations with a limit, in UTF-16 units.
inline constexpr std::size_t maxLength = 259;

/// True for a path that is relative: it begins neither with "\" nor with a drive. Any unit may stand before
/// the colon of a drive but "\".
bool isRelative(CStringView path) noexcept;

/// `file` seen from `folder`: an absolute file replaces the folder, a file that begins with one "\" replaces
/// all behind the folder's drive or share; "." and ".." are folded. "/" is an ordinary character, and doubled
/// separators stay: the nothing between them is a component that ".." takes away. ".." stops at a drive, at
/// "\" and at the server (not the share) of a network path; behind the first component of a relative path it
/// leaves a "\". A drive without a root and a path from which nothing is left get a "\" at the end. Nothing
/// when what is put together, before it is folded, has 260 units or more.
std::optional<CString> combine(CStringView folder, CStringView file);

/// The same into a string that is used again and again; false, with `result` left alone, in place of nothing.
/// The views must not be of `result`.
bool combineInto(CString& result, CStringView folder, CStringView file);

/// Like combine, but the leading backslash of `more` is dropped unless it is a network path.
std::optional<CString> append(CStringView path, CStringView more);

/// The path of `toFile` relative to `fromFolder`, beginning with ".\" or "..\"; nothing when they share no
/// root, as relative paths never do, or when the result would have 260 units or more. Components are compared
/// without regard to case; the spelling of `toFile` is kept. Both are taken as they stand: "." and ".." are
/// not folded. One separator at the end of `fromFolder` does not count. A folder that contains `fromFolder`
/// gives ".", "..", "..\.." and so on.
std::optional<CString> relativePathTo(CStringView fromFolder, CStringView toFile);

/// Cuts the last component off together with the separator in front of it, keeping the root; true when
/// something was cut off. A separator at the end counts as a last component of its own.
bool removeFileSpec(CString& path);

/// The tail of `path` behind its last separator, which here is "\", "/" or ":". A separator in front of "\"
/// or "/" or at the very end does not count.
CStringView findFileName(CStringView path) noexcept;

/// The tail from the last full stop on, or empty when there is none or a "\" or a blank stands behind it.
CStringView findExtension(CStringView path) noexcept;

/// The path without its extension.
CString removeExtension(CStringView path);

/// The path with its extension replaced by `extension`, which brings its own full stop; nothing when the
/// result would have 260 units or more.
std::optional<CString> renameExtension(CStringView path, CStringView extension);

/// An absolute path in its canonical form: "/" becomes "\", doubled separators collapse, "." and ".." are
/// folded and stop at the root (here the share of a network path), a component loses the one full stop at its
/// end, and the last one all blanks and full stops there. A separator at the end stays. No limit on the
/// length. The canonical form of the result is the result.
CString fullPathName(CStringView path);

/// The folder that holds the file of an absolute path, as removeFileSpec leaves it, and the name of the file
/// without folder and extension. Only "\" separates, so that folder, title and extension make up the path. No
/// limit on the length.
CString folderOf(CStringView path);
CString titleOf(CStringView path);

} // namespace ryv::paths
