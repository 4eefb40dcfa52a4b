#include "embedded/services/host_texts.h"

#include "resources/language.h"

namespace drafta {

ryv::CStringView hostText(ryv::CStringView english) noexcept {
    if (ryv::language() == ryv::Language::german)
        for (const HostText& text : germanTexts())
            if (text.english == english)
                return text.other;
    return english;
}

} // namespace drafta
