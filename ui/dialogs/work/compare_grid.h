// The settings of a drawing beside those of its project.
#pragma once

#include "model/drawing_settings.h"
#include "toolkit/grid.h"

#include <memory>

namespace ryv {

/// A row for each setting that does not describe one drawing only, in the order of the settings, each by page
/// and label of the properties sheets, with both values as the sheets spell them out, and what it is about;
/// those that differ are marked. An absent value shows empty.
class CRyvCfgDwgSetGrid : public Grid {
public:
    explicit CRyvCfgDwgSetGrid(int id);

    /// Asks LISP for the descriptions.
    void fill(const RyvCfgDrawingSettings& drawing, const RyvCfgDrawingSettings& project);

    /// Shows the rows that hold all words of `search`, without regard to case, and of these all or only those
    /// that differ.
    void show(bool differencesOnly, const CString& search);

    std::size_t settingCount() const noexcept { return rows_.size(); }
    std::size_t differenceCount() const noexcept;

private:
    struct Row {
        CStringArray texts;
        bool differs = false;
    };
    std::vector<Row> rows_;
};

/// Whether a setting counts as different in the way of CompareNonDrawingSpecificValues().
bool differs(const RyvCfgDrawingSettings& drawing, const RyvCfgDrawingSettings& project, int index);

} // namespace ryv
