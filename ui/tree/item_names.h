// What subfolders and drawings may be called.
#pragma once

#include "model/project_data.h"

#include <optional>

namespace ryv {

/// The characters that no subfolder name holds, as they are told to the user; control characters go without
/// saying.
inline constexpr CStringView forbiddenInSubfolderNames = u"<>/\\\"':;?*|,=`";

enum class NameProblem {
    none,
    noName,    ///< nothing but blanks, or of a drawing, nothing in front of the extension
    forbidden, ///< a character that such names do not hold
    tooLong,   ///< together with its folder
    taken
};

/// The name that a typed text gives a subfolder: they are always in capitals.
CString subfolderNameOf(CStringView text);

/// The name as it is now gives no problem, in whatever spelling. `trace` is that of the subfolder, `name` is
/// subfolderNameOf() of what was typed.
NameProblem problemOfSubfolderName(const RyvPrmProjectData& project, CStringView trace, CStringView name);

/// The path that a typed text gives a drawing, in its folder and with the extension of drawings; nothing when
/// it is too long.
std::optional<CString> renamedDrawing(CStringView drawing, CStringView text);

/// Without a look at the disk: whether the project lists another drawing of that name.
NameProblem problemOfDrawingName(const RyvPrmProjectData& project, CStringView drawing, CStringView text);

} // namespace ryv
