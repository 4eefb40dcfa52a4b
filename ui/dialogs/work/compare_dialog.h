// Comparing a drawing's settings with its project's.
#pragma once

#include "toolkit/dialog.h"
#include "ui/dialogs/work/compare_grid.h"

namespace ryv {

/// Shows both records; nothing can be changed. The names are those of the drawing's file and of the project.
class CRyvCfgDwgSettingsCompareDlg : public Dialog {
public:
    static constexpr int searchId = 1211;
    static constexpr int differencesOnlyId = 1212;
    static constexpr int gridId = 1213;
    static constexpr int countId = 1214;

    /// Calls LISP.
    CRyvCfgDwgSettingsCompareDlg(const CString& drawingName, const CString& projectName,
        const RyvCfgDrawingSettings& drawing, const RyvCfgDrawingSettings& project);

    CRyvCfgDwgSetGrid& grid() const { return control<CRyvCfgDwgSetGrid>(gridId); }

protected:
    void onChange(Control& control) override;

private:
    Panel rows_;
};

} // namespace ryv
