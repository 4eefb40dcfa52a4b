// The language that the user is spoken to in: chosen once, before the first text is shown.
#pragma once

#include "platform/os/environment.h"

namespace ryv {

enum class Language { english, german };

/// The one that is spoken now; English until it is chosen. Each program and each module has its own.
Language language() noexcept;

/// From the main thread only, while no other one asks for texts.
void setLanguage(Language language) noexcept;

/// What the locale of an environment asks for: the first that is known of the languages in LANGUAGE, else the
/// one of LC_ALL, LC_MESSAGES or LANG, whichever is set first. LANGUAGE does not count in the locale "C".
/// English for any other.
Language languageOf(Environment& environment);

/// Its two letters: "en", "de".
CStringView codeOf(Language language) noexcept;

} // namespace ryv
