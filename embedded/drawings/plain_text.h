// Texts as they are shown: without the codes that drawings put into them.
#pragma once

#include "base/strings.h"

namespace drafta {

/// A text of one line: "%%c", "%%d" and "%%p" become their signs, "%%nnn" the character of that number, and
/// the switches for underlining and the like go.
ryv::CString plainLine(ryv::CStringView text);

/// A formatted text: lines are separated by '\n'; fonts, heights, colours and braces go, stacked fractions
/// become "a/b", and the codes of plainLine() count too.
ryv::CString plainParagraphs(ryv::CStringView text);

} // namespace drafta
