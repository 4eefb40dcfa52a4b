// Projects and project files made by chance, for round trips.
#pragma once

#include "base/encoding.h"
#include "model/project_data.h"
#include "tests/support/random.h"

#include <string>

namespace ryv::test {

/// A text without line breaks from whatever a text may hold: other scripts, pairs and lone halves of
/// surrogates, NUL, quotes, brackets, the beginnings of all kinds of lines.
CString randomText(Random& chance);

/// Fills `project` as one that was read from a file in `folder` could be filled, except that nothing is
/// limited to what one encoding holds.
void fillProject(Random& chance, CStringView folder, RyvPrmProjectData& project);

/// The text of a file that somebody may have written by hand: lines of all kinds in any order, well-formed
/// and not.
CString randomFile(Random& chance);

TextEncoding randomEncoding(Random& chance);

/// The text with the encoding's mark in front. Characters that the encoding lacks become "?".
std::string encodedFile(CStringView text, TextEncoding encoding);

} // namespace ryv::test
