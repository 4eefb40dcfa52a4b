// The drawings that a project file lists.
#pragma once

#include "siblings/kqp_filer.h"

namespace drafta {

/// The full paths of a project's drawings, in the order of the file; false when it cannot be read.
bool readProjectDrawings(ryv::Files& files, ryv::CStringView project, ryv::CStringArray& drawings);

} // namespace drafta
