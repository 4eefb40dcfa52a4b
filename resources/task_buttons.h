// The numbers that the buttons of task dialogs answer with. OK and Cancel are those of UserInterface.
#pragma once

namespace ryv::task_button {

inline constexpr int ok = 1;
inline constexpr int cancel = 2; ///< also the answer of a dialog that is closed
inline constexpr int yes = 6;
inline constexpr int no = 7;
inline constexpr int subfoldersFirst = 1001; ///< on the level that was chosen
inline constexpr int subfoldersFirstBelow = 1002;
inline constexpr int drawingsFirst = 1003;
inline constexpr int drawingsFirstBelow = 1004;

} // namespace ryv::task_button
