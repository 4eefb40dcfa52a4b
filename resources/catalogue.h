// The parts that the catalogue of texts is made of. Who looks for a text asks resources/messages.h.
#pragma once

#include "resources/language.h"

#include <algorithm>
#include <array>
#include <span>

namespace ryv {

struct Message {
    int number = 0;
    CStringView text;
};

/// Every part stands in ascending order of the numbers, each number once.
constexpr bool isAscending(std::span<const Message> messages) noexcept {
    return std::adjacent_find(messages.begin(), messages.end(),
               [](const Message& a, const Message& b) { return a.number >= b.number; }) == messages.end();
}

/// Empty when the part has no such number.
constexpr CStringView findMessage(std::span<const Message> messages, int number) noexcept {
    const auto hit = std::lower_bound(messages.begin(), messages.end(), number,
        [](const Message& message, int wanted) { return message.number < wanted; });
    return hit != messages.end() && hit->number == number ? hit->text : CStringView();
}

/// What a setting is for, by the package's key for it.
struct SettingText {
    CStringView key;
    CStringView text;
};

// Each language has the same parts: what resources/message_numbers.h numbers; the properties sheets, their
// panels and the work on settings (resources/setting_message_numbers.h); new projects and new drawings
// (resources/creation_message_numbers.h); the list of open projects, and recent ones
// (resources/project_list_message_numbers.h); and the descriptions of the drawing settings.
namespace english {
std::span<const Message> mainMessages() noexcept;
std::span<const Message> settingMessages() noexcept;
std::span<const Message> creationMessages() noexcept;
std::span<const Message> projectListMessages() noexcept;
std::span<const SettingText> settingTexts() noexcept;
} // namespace english

namespace german {
std::span<const Message> mainMessages() noexcept;
std::span<const Message> settingMessages() noexcept;
std::span<const Message> creationMessages() noexcept;
std::span<const Message> projectListMessages() noexcept;
std::span<const SettingText> settingTexts() noexcept;
} // namespace german

using Catalogue = std::array<std::span<const Message>, 4>;
Catalogue catalogueOf(Language language) noexcept;

} // namespace ryv
