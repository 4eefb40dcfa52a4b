#include "ui/dialogs/settings/setting_dialogs.h"

#include "base/join.h"
#include "base/text.h"
#include "bridge/settings_calls.h"
#include "manager/shown_messages.h"
#include "resources/messages.h"
#include "resources/setting_message_numbers.h"
#include "ui/dialogs/settings/value_rules.h"

#include <algorithm>
#include <charconv>

namespace ryv::setting_dialogs {

namespace {

constexpr int kindOfReferences = 1;
constexpr int tagSuffixes = 4;
constexpr int wireSuffixes = 8;
constexpr int wireLayers = 26;
constexpr int otherData = 55;
constexpr int gap = 76;

// The order is the one in which LISP takes and gives the values.
constexpr std::array<int, 8> gridReferences = {18, 19, 20, 21, 22, 23, 24, 25};
constexpr std::array<int, 5> referenceText = {65, 64, 61, 63, 62};
constexpr std::array<int, 7> referenceGraphics = {66, 67, 68, 64, 61, 63, 62};
constexpr std::array<int, 12> referenceTable = {69, 70, 71, 72, 73, 68, 64, 61, 63, 62, 14, 47};

/// An absent setting stays absent unless the dialog gives it a value.
bool put(SettingSource& settings, int index, CStringView value) {
    if (textOf(settings, drawingSetting(index)) == value)
        return false;
    settings.setValue(drawingSetting(index), value);
    return true;
}

using TextDialog = bool (*)(CStringView text, CString& edited);

bool editText(SettingSource& settings, int index, TextDialog dialog) {
    CString edited;
    return dialog(textOf(settings, drawingSetting(index)), edited) && put(settings, index, edited);
}

template <std::size_t N>
std::array<CString, N> valuesOf(const SettingSource& settings, const std::array<int, N>& indexes) {
    std::array<CString, N> values;
    std::transform(indexes.begin(), indexes.end(), values.begin(),
        [&settings](int index) { return textOf(settings, drawingSetting(index)); });
    return values;
}

/// A list that is not as long as what was asked for is none of ours.
template <std::size_t N, class Values>
bool putAll(SettingSource& settings, const std::array<int, N>& indexes, const Values& values) {
    if (values.size() != N)
        return false;
    bool changed = false;
    for (std::size_t i = 0; i < N; ++i)
        changed = put(settings, indexes[i], values[i]) || changed;
    return changed;
}

bool isListOfFormats(CStringView text) {
    const CStringArray parts = split(text, u';');
    return std::all_of(parts.begin(), parts.end(),
        [](const CString& part) { return part.empty() || part.find(u'=') != CString::npos; });
}

/// As the defaults write it: with a decimal point.
CString toDecimal(double number) {
    std::array<char, 64> digits{};
    const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), number);
    const std::string_view text(digits.data(), static_cast<std::size_t>(end - digits.data()));
    return fromAscii(text) + (text.find_first_of(".e") == text.npos ? u".0" : u"");
}

} // namespace

bool editComponentSuffixes(SettingSource& settings) {
    return editText(settings, tagSuffixes, lisp::editComponentSuffixes);
}

bool editWireNumberSuffixes(SettingSource& settings) {
    return editText(settings, wireSuffixes, lisp::editWireNumberSuffixes);
}

bool chooseLineReferences(SettingSource& settings) {
    return editText(settings, kindOfReferences, [](CStringView kind, CString& edited) {
        return lisp::setUpLadderReferences(kind, messageText(message::lineReferencesTitle), edited);
    });
}

bool setUpGridReferences(SettingSource& settings) {
    const auto values = valuesOf(settings, gridReferences);
    CStringArray edited;
    return lisp::setUpGridReferences(messageText(message::gridReferencesTitle),
               CStringArray(values.begin(), values.end()), edited) &&
           putAll(settings, gridReferences, edited);
}

bool setUpWireLayers(SettingSource& settings) {
    std::vector<CStringArray> layers;
    for (const CString& name : split(textOf(settings, drawingSetting(wireLayers)), u','))
        if (const CStringView layer = trim(name); !layer.empty())
            layers.push_back({CString(layer)});
    if (!layers.empty())
        lisp::setUpWireLayers(0, layers);
    return false;
}

bool setUpFormatsByLayer(SettingSource& settings) {
    const CString present = textOf(settings, drawingSetting(otherData));
    if (!isListOfFormats(present)) {
        showMessage({message::formatsByLayerForeign, message::formatsByLayerTitle, MessageIcon::warning}, {});
        return false;
    }
    CStringArray formats;
    return lisp::setUpWireFormatByLayer(present, formats) && put(settings, otherData, join(formats, u";"));
}

bool setUpInlineGap(SettingSource& settings) {
    const auto present =
        threeNumbers(textOf(settings, drawingSetting(gap))).value_or(std::array<double, 3>{});
    std::vector<double> edited;
    if (!lisp::setUpInlineGap({present.begin(), present.end()}, edited) || edited.size() != present.size() ||
        std::equal(edited.begin(), edited.end(), present.begin()))
        return false;
    CStringArray parts;
    for (const double number : edited)
        parts.push_back(toDecimal(number));
    return put(settings, gap, join(parts, u","));
}

bool setUpReferenceText(SettingSource& settings) {
    CStringArray edited;
    return lisp::setUpReferenceText(valuesOf(settings, referenceText), edited) &&
           putAll(settings, referenceText, edited);
}

bool setUpReferenceGraphics(SettingSource& settings) {
    lisp::GraphicalReferenceValues edited;
    return lisp::setUpGraphicalReferences(valuesOf(settings, referenceGraphics), edited) &&
           putAll(settings, referenceGraphics, edited);
}

bool setUpReferenceTable(SettingSource& settings) {
    CStringArray edited;
    return lisp::setUpReferenceTable(valuesOf(settings, referenceTable), edited) &&
           putAll(settings, referenceTable, edited);
}

} // namespace ryv::setting_dialogs
