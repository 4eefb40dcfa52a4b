// Findings in words.
#pragma once

#include "siblings/project_findings.h"

#include <string_view>

namespace kqp {

/// What is the matter and what becomes of the line, in one line without a full stop.
std::string_view describe(ryv::ProjectFinding finding);

} // namespace kqp
