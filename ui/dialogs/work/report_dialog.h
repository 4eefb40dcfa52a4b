// What came of work on many drawings, or what the user has to know in more lines than a box holds.
#pragma once

#include "toolkit/dialog.h"

namespace ryv {

/// A text that can be scrolled and copied, and a button that closes it.
class SettingsReportDlg : public Dialog {
public:
    static constexpr int textId = 1201;

    SettingsReportDlg(CString title, const CStringArray& lines);
};

/// Shows one; anything may have changed when it returns.
void showReport(CString title, const CStringArray& lines);

/// Appends a group of lines under its heading, if it has one, with an empty line in front of it where there
/// is a group before; nothing when the group is empty.
void addGroup(CStringArray& report, CStringView heading, const CStringArray& lines);

} // namespace ryv
