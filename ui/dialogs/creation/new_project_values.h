// What a new project is made of.
#pragma once

#include "base/strings.h"

#include <optional>

namespace ryv {

struct NewProjectValues {
    CString path;   ///< of the new project file
    CString source; ///< the project file whose settings it gets
    CStringArray descriptions;
    /// The new project's miscellaneous setting 9. What it means is the business of those who read it, and
    /// the package's LISP does not: without a value the new project has that of its source.
    std::optional<CString> setting9;
    bool showsProperties = false; ///< its properties are to be shown afterwards
};

} // namespace ryv
