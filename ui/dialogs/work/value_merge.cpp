#include "ui/dialogs/work/value_merge.h"

#include "base/format.h"
#include "resources/message_numbers.h"
#include "resources/messages.h"
#include "resources/setting_message_numbers.h"
#include "ui/dialogs/work/report_dialog.h"
#include "ui/dialogs/work/setting_names.h"

#include <algorithm>

namespace ryv {

namespace {

/// The value to be stored; `both` is set when both have changed it in different ways.
template <class T>
T merge(const T& base, const T& mine, const T& theirs, bool& both) {
    both = mine != base && theirs != base && mine != theirs;
    return mine != base && !both ? mine : theirs;
}

/// As merge(), noting a conflict under a number.
template <class T, class Number>
T merge(const T& base, const T& mine, const T& theirs, Number number, std::vector<Number>& conflicts) {
    bool both = false;
    T merged = merge(base, mine, theirs, both);
    if (both)
        conflicts.push_back(number);
    return merged;
}

using Value = std::optional<CString>;

Value valueOf(const RyvCfgDrawingSettings& settings, int index) {
    const CString* const value = settings.find(index);
    return value ? Value(*value) : Value();
}

Value valueOf(const RyvPmMiscProjSettings& settings, int index) {
    const auto hit = settings.values().find(index);
    return hit != settings.values().end() ? Value(hit->second) : Value();
}

template <class Settings>
Settings mergeEach(int first, const Settings& base, const Settings& mine, const Settings& theirs,
    std::vector<int>& conflicts) {
    Settings merged;
    for (int index = first; index <= Settings::getMaxBracketIndex(); ++index) {
        const Value value =
            merge(valueOf(base, index), valueOf(mine, index), valueOf(theirs, index), index, conflicts);
        merged.setValue(index, value ? &*value : nullptr);
    }
    return merged;
}

/// A description line means what its place says, so lines are merged by place; behind the last one there are
/// empty ones.
CStringList mergeLines(const CStringList& base, const CStringList& mine, const CStringList& theirs,
    std::vector<std::size_t>& conflicts) {
    const auto line = [](const CStringList& lines, std::size_t i) {
        return i < lines.size() ? lines[i] : CString();
    };
    bool both = false;
    std::size_t count = merge(base.size(), mine.size(), theirs.size(), both);
    if (both)
        count = std::max(mine.size(), theirs.size());
    CStringList merged;
    for (std::size_t i = 0; i < std::max({count, mine.size(), theirs.size()}); ++i)
        merged.push_back(merge(line(base, i), line(mine, i), line(theirs, i), i, conflicts));
    while (merged.size() > count && merged.back().empty())
        merged.pop_back();
    return merged;
}

CStringList listOf(const DescriptionLines& lines) {
    CStringList list;
    for (const CStringView line : lines)
        list.emplace_back(line);
    return list;
}

} // namespace

RyvCfgDrawingSettings mergeSettings(const RyvCfgDrawingSettings& base, const RyvCfgDrawingSettings& mine,
    const RyvCfgDrawingSettings& theirs, MergeConflicts& conflicts) {
    return mergeEach(0, base, mine, theirs, conflicts.settings);
}

ProjectValues mergeProject(const ProjectValues& base, const ProjectValues& mine, const ProjectValues& theirs,
    MergeConflicts& conflicts) {
    return {mergeLines(base.descriptions, mine.descriptions, theirs.descriptions, conflicts.lines),
        mergeEach(1, base.misc, mine.misc, theirs.misc, conflicts.misc),
        mergeSettings(base.settings, mine.settings, theirs.settings, conflicts)};
}

RyvPrmFileDetails mergeDetails(const RyvPrmFileDetails& base, const RyvPrmFileDetails& mine,
    const RyvPrmFileDetails& theirs, MergeConflicts& conflicts) {
    std::vector<int>& fields = conflicts.fields;
    RyvPrmFileDetails merged(theirs);
    merged.setDescription1(CString(merge(base.getDescription1(), mine.getDescription1(),
        theirs.getDescription1(), message::fieldSection, fields)));
    merged.setDescription2(CString(merge(base.getDescription2(), mine.getDescription2(),
        theirs.getDescription2(), message::fieldSubSection, fields)));
    merged.setDescriptions(mergeLines(listOf(base.getDescriptions()), listOf(mine.getDescriptions()),
        listOf(theirs.getDescriptions()), conflicts.lines));
    merged.setReferenceOnly(merge(base.isReferenceOnly(), mine.isReferenceOnly(), theirs.isReferenceOnly(),
        message::keptReferenceOnly, fields));
    return merged;
}

bool isSame(const RyvCfgDrawingSettings& a, const RyvCfgDrawingSettings& b) {
    for (int index = 0; index <= RyvCfgDrawingSettings::getMaxBracketIndex(); ++index)
        if (valueOf(a, index) != valueOf(b, index))
            return false;
    return true;
}

bool isSame(const ProjectValues& a, const ProjectValues& b) {
    return a.descriptions == b.descriptions && a.misc == b.misc && isSame(a.settings, b.settings);
}

void tellConflicts(const CString& name, const MergeConflicts& conflicts) {
    if (conflicts.empty())
        return;
    const SettingNames names;
    CStringArray lines{CString(messageText(message::othersKept)), {}};
    for (const int field : conflicts.fields)
        lines.emplace_back(messageText(field));
    for (const std::size_t line : conflicts.lines)
        lines.push_back(format(messageText(message::keptDescriptionLine), {line + 1}));
    for (const int index : conflicts.misc)
        lines.push_back(names.name(miscSetting(index)));
    for (const int index : conflicts.settings)
        lines.push_back(names.name(drawingSetting(index)));
    showReport(format(messageText(message::othersKeptTitle), {name}), lines);
}

} // namespace ryv
