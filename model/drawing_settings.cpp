#include "model/drawing_settings.h"

#include "base/fold.h"
#include "model/drawing_settings_table.h"
#include "siblings/token.h"

#include <algorithm>

namespace ryv {

namespace {

constexpr int sheetIndex = 13;
constexpr int wireLayersIndex = 26;

bool isIndex(int index) noexcept {
    return index >= 0 && index <= RyvCfgDrawingSettings::getMaxBracketIndex();
}

const detail::DrawingSetting& setting(int index) {
    return detail::drawingSettings[static_cast<std::size_t>(index)];
}

bool contains(const CStringArray& items, CStringView wanted) {
    return std::any_of(
        items.begin(), items.end(), [wanted](const CString& item) { return equalNoCase(item, wanted); });
}

} // namespace

RyvCfgDrawingSettings& RyvCfgDrawingSettings::operator=(const RyvCfgDrawingSettings& other) {
    for (std::size_t i = 0; i < count; ++i)
        if (other.values_[i])
            values_[i] = other.values_[i];
    return *this;
}

void RyvCfgDrawingSettings::reInitializeData() {
    initializeData();
}

void RyvCfgDrawingSettings::initializeData() {
    values_.fill(std::nullopt);
}

const CString* RyvCfgDrawingSettings::find(int index) const noexcept {
    if (!isIndex(index))
        return nullptr;
    const auto& value = values_[static_cast<std::size_t>(index)];
    return value ? &*value : nullptr;
}

RyvCfgDrawingSettings::Status RyvCfgDrawingSettings::getValue(int index, CString& value) const {
    if (!isIndex(index))
        return Status::present;
    const CString* const found = find(index);
    if (!found)
        return Status::absent;
    value = *found;
    return Status::present;
}

RyvCfgDrawingSettings::Status RyvCfgDrawingSettings::setValue(int index, const CString* value) {
    if (index > getMaxBracketIndex())
        return Status::badIndex;
    if (index < 0)
        return Status::present;
    if (value)
        values_[static_cast<std::size_t>(index)] = *value;
    else
        freeAndSetOnePtrNULL(index);
    return Status::present;
}

void RyvCfgDrawingSettings::freeAndSetOnePtrNULL(int index) {
    values_[static_cast<std::size_t>(index)].reset();
}

void RyvCfgDrawingSettings::set(int index, CStringView value) {
    values_[static_cast<std::size_t>(index)] = CString(value);
}

bool RyvCfgDrawingSettings::getKQ_MTagForIndex(int index, CString& tag) {
    if (!isIndex(index))
        return false;
    tag = setting(index).tag;
    return true;
}

bool RyvCfgDrawingSettings::getKQ_MAltTagForIndex(int index, CString& tag) {
    if (index != sheetIndex)
        return false;
    tag = u"SHEET_";
    return true;
}

int RyvCfgDrawingSettings::getIndexForKQ_MTag(const char16_t* tag) {
    return tag ? getIndexForKQ_MTag(CString(tag)) : -1;
}

int RyvCfgDrawingSettings::getIndexForKQ_MTag(const CString& tag) {
    for (int index = 0; index <= getMaxBracketIndex(); ++index)
        if (equalNoCase(setting(index).tag, tag))
            return index;
    return -1;
}

bool RyvCfgDrawingSettings::getMessageKeyForIndex(int index, CString& key) {
    if (!isIndex(index) || *setting(index).messageKey == u'\0')
        return false;
    key = setting(index).messageKey;
    return true;
}

bool RyvCfgDrawingSettings::isDrawingSpecific(int index) noexcept {
    return index == sheetIndex || index == 46 || (index >= 51 && index <= 53);
}

bool RyvCfgDrawingSettings::operator==(const RyvCfgDrawingSettings& other) const {
    return std::equal(
        values_.begin(), values_.end(), other.values_.begin(), [](const auto& a, const auto& b) {
            return a.has_value() == b.has_value() && (!a || equalNoCase(*a, *b));
        });
}

bool RyvCfgDrawingSettings::CompareNonDrawingSpecificValues(const RyvCfgDrawingSettings& other) const {
    for (int index = 0; index <= getMaxBracketIndex(); ++index) {
        if (isDrawingSpecific(index))
            continue;
        const CString* const mine = find(index);
        const CString* const theirs = other.find(index);
        if (!mine != !theirs)
            return false;
        if (!mine || equalNoCase(*mine, *theirs))
            continue;
        if (index != wireLayersIndex || !firstListInSecondList(*theirs, *mine))
            return false;
    }
    return true;
}

void RyvCfgDrawingSettings::CopyNonDrawingSpecificValues(
    const RyvCfgDrawingSettings& other, bool clearAbsent) {
    for (int index = 0; index <= getMaxBracketIndex(); ++index) {
        if (isDrawingSpecific(index))
            continue;
        auto& mine = values_[static_cast<std::size_t>(index)];
        const CString* const theirs = other.find(index);
        if (theirs && mine && index == wireLayersIndex)
            mergeWireLays(*theirs, *mine);
        else if (theirs || clearAbsent)
            setValue(index, theirs);
    }
}

bool RyvCfgDrawingSettings::firstListInSecondList(CStringView first, CStringView second) {
    const CStringArray wanted = listItems(first, u',');
    const CStringArray present = listItems(second, u',');
    return std::all_of(
        wanted.begin(), wanted.end(), [&present](const CString& item) { return contains(present, item); });
}

bool RyvCfgDrawingSettings::mergeWireLays(CStringView first, CString& second) {
    if (second.empty()) {
        second = first;
        return true;
    }
    CStringArray present = listItems(second, u',');
    for (const CString& item : listItems(first, u',')) {
        if (contains(present, item))
            continue;
        second.append(u",").append(item);
        present.push_back(item);
    }
    return true;
}

} // namespace ryv
