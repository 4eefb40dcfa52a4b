// Paths as the package's LISP writes them, and as everything else does.
#pragma once

#include "base/strings.h"

namespace ryv {

class RyvUtFile {
public:
    /// A path from LISP, where "/" and "\" both separate and a separator may stand doubled, as a path with
    /// single "\". The two separators in front of a network path stay.
    static CString LispToWin(CStringView path);

    /// A path with "/" between its parts, which LISP takes without escaping.
    static CString WinToLisp(CStringView path);

    /// The name under which a project is shown: its file name without folder and extension, in upper case.
    static CString ProjectNameOf(CStringView projectFile);
};

} // namespace ryv
