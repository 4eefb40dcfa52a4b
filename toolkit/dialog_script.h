// Answers a dialog from a text, as a user would: step by step, and only with what can be used.
//
//     name=MyProj; folder="C:\A; B"; lines=first|second; ownFolder=1; ok
//
// Steps are parted by ";". "NAME=VALUE" gives a control a value (toolkit/script_values.h), "page=NAME" turns
// to a page of a property sheet, and a name alone or "press=NAME" presses a button; "cancel" always works. A
// control is named by its name, its label without "&" or its ID; an open page and the focus follow.
#pragma once

#include "toolkit/dialog.h"

namespace ryv {

/// How far a script came.
struct ScriptResult {
    std::size_t steps = 0;       ///< that were done
    CString failedStep;          ///< as it stands in the script; empty when all were done
    CString problem;             ///< "name is disabled", when a step failed
    bool endsWithButton = false; ///< the last step that was done pressed one

    bool ok() const noexcept { return failedStep.empty(); }
};

/// Applies a script to an open dialog. Stops at the first step that cannot be done; what was done before
/// stays done. A step after the dialog has ended fails.
ScriptResult runDialogScript(Dialog& dialog, CStringView script);

/// One step; empty when it was done, else why not.
CString runDialogStep(Dialog& dialog, CStringView step);

/// Whether a step presses a button.
bool isPress(CStringView step) noexcept;

} // namespace ryv
