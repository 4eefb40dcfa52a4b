// Patterns of (wcmatch).
#pragma once

#include "base/strings.h"

namespace drafta::lisp {

/// True when the whole of `text` matches one of the patterns in `patterns`, which commas separate. In a
/// pattern
///
///     #        is a digit, @ a letter, . anything that is neither, ? any character, * any number of any
///     [a-z_]   is one of the characters, [~...] any other one
///     ~        in front means: does not match the rest
///     `        takes the next character as it stands
///
/// and everything else itself. Case counts. Takes time in proportion to the product of both lengths at most.
bool matchesWildcards(ryv::CStringView text, ryv::CStringView patterns) noexcept;

} // namespace drafta::lisp
