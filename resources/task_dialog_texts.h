// The package's task dialogs, by ID: their texts and buttons, with "{Name}" where the value of a variable
// goes. Who serves the TaskDialogs port fills in the values (fillVariables) and hands the rest on as it is.
#pragma once

#include "base/strings.h"

#include <span>
#include <utility>
#include <vector>

namespace ryv {

/// The numbers that buttons answer with. OK and Cancel are those of UserInterface.
namespace task_button {
inline constexpr int ok = 1;
inline constexpr int cancel = 2; ///< also the answer of a dialog that is closed
inline constexpr int yes = 6;
inline constexpr int no = 7;
inline constexpr int subfoldersFirst = 1001; ///< on the level that was chosen
inline constexpr int subfoldersFirstBelow = 1002;
inline constexpr int drawingsFirst = 1003;
inline constexpr int drawingsFirstBelow = 1004;
} // namespace task_button

struct TaskDialogButtonText {
    int id = 0;
    CStringView text;
};

struct TaskDialogText {
    CStringView id;
    CStringView title;
    CStringView instruction; ///< the one sentence in large letters
    CStringView content;
    std::span<const TaskDialogButtonText> buttons;
    int defaultButton = 0;
    CStringView variable; ///< the name of the one that the caller has to supply; empty when there is none
};

/// All dialogs.
std::span<const TaskDialogText> taskDialogTexts() noexcept;

/// The dialog of an ID, null when there is none. Case counts.
const TaskDialogText* findTaskDialogText(CStringView id) noexcept;

/// The text with each "{Name}" replaced by the value of that name; of several values of one name the last
/// counts. A name without a value stays as it stands. Case counts; values are not searched for names.
CString fillVariables(CStringView text, const std::vector<std::pair<CString, CString>>& values);

} // namespace ryv
