// Shows models as plain text: for people at a terminal, and for tests that compare a whole dialog at once.
#pragma once

#include "toolkit/dialog.h"
#include "toolkit/menu.h"
#include "toolkit/progress_model.h"
#include "toolkit/property_sheet.h"

namespace ryv {

struct RenderOptions {
    bool showsNames = false;     ///< behind each control the name for scripts, "{folder}"
    std::size_t mostRows = 20;   ///< of lists, grids and trees; what is left out is said
    std::size_t mostChoices = 6; ///< of combo boxes
    std::size_t mostDepth = 16;  ///< of groups in pages of groups; what is deeper is left out
};

/// All texts end with a line end. The same model always gives the same text. Control characters are shown as
/// blanks; a unit counts as one column.
class TextRenderer {
public:
    explicit TextRenderer(RenderOptions options = {}) : options_(options) {}

    /// A control that is hidden gives nothing.
    CString control(const Control& control) const;
    CString panel(const Panel& panel) const;
    /// Of a property sheet, the titles of all pages and the content of the one that is open. The control that
    /// has the focus is marked with ">".
    CString dialog(const Dialog& dialog) const;
    /// The numbers of the commands, their texts, and the menus inside indented.
    CString menu(const Menu& menu) const;
    CString progress(const ProgressModel& progress) const;

private:
    RenderOptions options_;
};

} // namespace ryv
