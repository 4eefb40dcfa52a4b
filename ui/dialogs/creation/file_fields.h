// Paths in the fields of the dialogs that make files: as people type them, as the user's settings remember
// them, and as files are chosen for them.
#pragma once

#include "base/strings.h"

namespace ryv {

/// The longest path that a new file may have, in UTF-16 units.
inline constexpr std::size_t longestQualifiedPath = 999;

/// What a field says, as module text; blanks at both ends do not count. Both forms of a path are taken, that
/// of this machine and the module's own. A relative one stays relative.
CString typedPath(CStringView text);

/// `name` in `folder`; when that is too long to be put together, the two with a separator between them, which
/// isQualified() is asked about all the same. Either may be empty.
CString pathIn(CStringView folder, CStringView name);

/// Whether a path is a full one without "." and "..", which leads where it says.
bool isQualified(CStringView path);

/// Whether there is a file of that path; a folder is none.
bool isFile(CStringView path);

/// The file that the user gave last: a string of the host's profile, under "\Settings" and the dialog's own
/// key. Empty when there is none.
CString rememberedFile(CStringView dialogKey, CStringView name);
/// Keeps it, in a key that is made when it is missing. A registry that cannot be written keeps nothing.
void rememberFile(CStringView dialogKey, CStringView name, CStringView file);

/// Ask for a folder, or for a file of an extension; `title` is the number of the title. Empty when the user
/// cancels.
CString chooseFolder(int title, CStringView start);
CString chooseFile(int title, CStringView extension, CStringView start);

} // namespace ryv
