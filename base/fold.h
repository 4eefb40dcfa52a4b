// Case without a locale. "Without regard to case" means the same thing everywhere in the system: both sides
// are mapped to upper case unit by unit through one fixed table of simple pairs (873 pairs of the basic
// plane), and compared by code unit. The process locale never enters, so a file compares alike on every
// machine.
#pragma once

#include "base/strings.h"

#include <cstdint>

namespace ryv {

/// The upper-case (lower-case) partner of a UTF-16 unit, or the unit itself when it has none. Surrogates have
/// none.
char16_t toUpper(char16_t unit) noexcept;
char16_t toLower(char16_t unit) noexcept;

/// The text with every unit mapped. The length never changes.
CString toUpper(CStringView text);
CString toLower(CStringView text);

/// Below, at or above zero as `a` sorts before, with or behind `b` when case is ignored.
int compareNoCase(CStringView a, CStringView b) noexcept;

/// True when the two are equal without regard to case.
bool equalNoCase(CStringView a, CStringView b) noexcept;

/// A hash that is equal for texts that are equal without regard to case. Not stable across versions: never
/// stored.
///
/// A table whose keys come from outside gives a key of its own, which nobody can know beforehand; texts that
/// collide in every table cannot be made up then.
std::uint64_t hashNoCase(CStringView text, std::uint64_t key = 0) noexcept;

} // namespace ryv
