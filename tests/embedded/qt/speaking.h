// Another language for as long as a test lasts.
#pragma once

#include "embedded/qt/translation.h"
#include "resources/language.h"

#include <QCoreApplication>

namespace drafta::test {

class Speaking {
public:
    explicit Speaking(ryv::Language language) : chosen_(language), translation_(*qApp) {}

private:
    struct Chosen {
        explicit Chosen(ryv::Language language) { ryv::setLanguage(language); }
        ~Chosen() { ryv::setLanguage(ryv::Language::english); }
    };
    Chosen chosen_;
    Translation translation_;
};

inline constexpr ryv::Language languages[] = {ryv::Language::english, ryv::Language::german};

} // namespace drafta::test
