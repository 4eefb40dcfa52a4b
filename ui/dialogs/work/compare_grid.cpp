#include "ui/dialogs/work/compare_grid.h"

#include "base/join.h"
#include "model/setting_value.h"
#include "resources/messages.h"
#include "resources/setting_message_numbers.h"
#include "toolkit/tree_filter.h"
#include "ui/dialogs/settings/setting_description.h"
#include "ui/dialogs/work/setting_names.h"

#include <algorithm>

namespace ryv {

CRyvCfgDwgSetGrid::CRyvCfgDwgSetGrid(int id) : Grid(id) {
    setColumns({CString(messageText(message::compareSetting)), CString(messageText(message::compareDrawing)),
        CString(messageText(message::compareProject)), CString(messageText(message::compareMeaning))});
}

void CRyvCfgDwgSetGrid::fill(const RyvCfgDrawingSettings& drawing, const RyvCfgDrawingSettings& project) {
    rows_.clear();
    const SettingNames names;
    for (int index = 0; index <= RyvCfgDrawingSettings::getMaxBracketIndex(); ++index) {
        if (RyvCfgDrawingSettings::isDrawingSpecific(index))
            continue;
        const SettingKey key = drawingSetting(index);
        rows_.push_back({{names.name(key), names.value(key, valueOrEmpty(drawing, index)),
                             names.value(key, valueOrEmpty(project, index)), settingExplanation(index)},
            differs(drawing, project, index)});
    }
    show(false, {});
}

void CRyvCfgDwgSetGrid::show(bool differencesOnly, const CString& search) {
    const TreeFilter filter(search);
    const bool noneDiffers = differencesOnly && differenceCount() == 0;
    setPlaceholder(
        CString(messageText(noneDiffers ? message::compareNoneDiffers : message::compareNoneFound)));
    clear();
    for (const Row& row : rows_) {
        if (differencesOnly && !row.differs)
            continue;
        if (!filter.matches(join(row.texts, u"\n")))
            continue;
        addRow(row.texts);
        setMarked(rowCount() - 1, row.differs);
    }
}

std::size_t CRyvCfgDwgSetGrid::differenceCount() const noexcept {
    return static_cast<std::size_t>(
        std::count_if(rows_.begin(), rows_.end(), [](const Row& row) { return row.differs; }));
}

/// The record's own rule decides, on records that hold nothing but this setting.
bool differs(const RyvCfgDrawingSettings& drawing, const RyvCfgDrawingSettings& project, int index) {
    RyvCfgDrawingSettings ofDrawing;
    RyvCfgDrawingSettings ofProject;
    ofDrawing.setValue(index, drawing.find(index));
    ofProject.setValue(index, project.find(index));
    return !ofDrawing.CompareNonDrawingSpecificValues(ofProject);
}

} // namespace ryv
