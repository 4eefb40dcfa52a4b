// A registry hive as text for a file: readable, and exact for any UTF-16 text.
//
//     drafta registry 1
//
//     [Software\drafta\Profiles\Default\Settings]
//     "Folder"="C:\Projects"
//     "Visibility"=1
//
// A heading names a key, the lines below it hold its values: a string between quotes or a decimal integer.
// "%" and four hexadecimal digits are a UTF-16 unit that would not be safe as it is: control characters and
// line separators, quotes, "%" itself, lone surrogates. Empty lines mean nothing; lines may end with CR LF.
#pragma once

#include "embedded/registry/hive.h"

#include <optional>
#include <string>
#include <string_view>

namespace drafta {

/// The hive that a file holds. Nothing when a line is none of the above, when a key has two values of one
/// name, or when the bytes are not UTF-8: writing such a hive back would lose something.
std::optional<Hive> parseHive(std::string_view bytes);

/// The file's content for a hive; parseHive gives the same hive back. Keys and values in a fixed order.
std::string printHive(const Hive& hive);

} // namespace drafta
