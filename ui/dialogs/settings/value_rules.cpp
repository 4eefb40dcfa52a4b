#include "ui/dialogs/settings/value_rules.h"

#include "base/format.h"
#include "base/text.h"
#include "bridge/platform.h"
#include "manager/shown_messages.h"
#include "resources/messages.h"
#include "resources/setting_message_numbers.h"
#include "ui/dialogs/creation/file_fields.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace ryv {

namespace {

constexpr CStringView neverInLayers = u"<>/\\\":;|=`";
constexpr CStringView patternsOfLayers = u"*?";

bool isWholeNumber(CStringView text) {
    text = trim(text);
    return !text.empty() && text.find_first_not_of(u"0123456789") == CStringView::npos;
}

bool isLayer(CStringView name, bool maybePattern) {
    name = trim(name);
    return !name.empty() && name.find_first_of(neverInLayers) == CStringView::npos &&
           (maybePattern || name.find_first_of(patternsOfLayers) == CStringView::npos) &&
           name.find(u',') == CStringView::npos;
}

template <class Fits>
bool allItems(CStringView list, char16_t separator, Fits fits) {
    const CStringArray items = split(list, separator);
    return std::all_of(items.begin(), items.end(), fits);
}

bool holdsNumber(CStringView format) {
    return format.find(u"%N") != CStringView::npos || format.find(u"%n") != CStringView::npos;
}

bool isThere(CStringView path, bool folder) {
    FileInformation found;
    return platform().os.files->information(path, found).ok() && found.isFolder == folder;
}

CString missingFolder(CStringView list) {
    for (const CString& item : split(list, u';'))
        if (const CString folder = typedPath(item); !folder.empty() && !isThere(folder, true))
            return format(messageText(message::warnFolderMissing), {shownPath(folder)});
    return {};
}

CString missingFile(CStringView typed) {
    const CString path = typedPath(typed);
    if (path.empty() || isThere(path, false))
        return {};
    return format(messageText(message::warnFileMissing), {shownPath(path)});
}

/// Many write 1,5, and "not a number" would not tell them why.
CString decimalComma(CStringView value) {
    CString corrected(trim(value));
    const std::size_t comma = corrected.find(u',');
    if (comma == CString::npos)
        return {};
    corrected[comma] = u'.';
    return decimalNumber(corrected) ? format(messageText(message::warnDecimalComma), {corrected}) : CString();
}

CString unlessNumber(bool fits, CStringView value, int warning) {
    CString comma = fits ? CString() : decimalComma(value);
    return fits || !comma.empty() ? comma : CString(messageText(warning));
}

CString unless(bool fits, int warning) {
    return fits ? CString() : CString(messageText(warning));
}

} // namespace

std::optional<double> decimalNumber(CStringView text) noexcept {
    text = trim(text);
    std::array<char, 64> bytes{};
    if (text.empty() || text.size() > bytes.size() || text.find_first_not_of(u"+-.0123456789eE") != text.npos)
        return std::nullopt;
    std::transform(
        text.begin(), text.end(), bytes.begin(), [](char16_t unit) { return static_cast<char>(unit); });
    const char* const begin = bytes.data() + (text[0] == u'+' ? 1 : 0);
    const char* const end = bytes.data() + text.size();
    double number = 0;
    const auto [stop, error] = std::from_chars(begin, end, number);
    const bool whole = error == std::errc() && stop == end && std::isfinite(number);
    return whole ? std::optional(number) : std::nullopt;
}

std::optional<std::array<double, 3>> threeNumbers(CStringView text) {
    std::array<double, 3> numbers{};
    const CStringArray parts = split(text, u',');
    if (parts.size() != numbers.size())
        return std::nullopt;
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const std::optional<double> number = decimalNumber(parts[i]);
        if (!number)
            return std::nullopt;
        numbers[i] = *number;
    }
    return numbers;
}

CString warningFor(ValueRule rule, CStringView value) {
    switch (rule) {
    case ValueRule::any:
        return {};
    case ValueRule::notEmpty:
        return unless(!trim(value).empty(), message::warnEmpty);
    case ValueRule::number:
        return unlessNumber(trim(value).empty() || decimalNumber(value), value, message::warnNoNumber);
    case ValueRule::positive:
        return unlessNumber(decimalNumber(value).value_or(0) > 0, value, message::warnNotPositive);
    case ValueRule::wholeNumber:
        return unless(isWholeNumber(value), message::warnNotWhole);
    case ValueRule::numberFormat:
        return unless(holdsNumber(value), message::warnFormatWithoutNumber);
    case ValueRule::threeNumbers:
        return unless(threeNumbers(value).has_value(), message::warnNotThreeNumbers);
    case ValueRule::wholeNumbers:
        return unless(allItems(value, u',', isWholeNumber), message::warnNotWholeNumbers);
    case ValueRule::layer:
        return unless(isLayer(value, false), message::warnNoLayer);
    case ValueRule::layers:
        return unless(allItems(value, u',', [](CStringView name) { return isLayer(name, true); }),
            message::warnNoLayers);
    case ValueRule::folders:
        return missingFolder(value);
    case ValueRule::file:
        return missingFile(value);
    }
    return {};
}

} // namespace ryv
