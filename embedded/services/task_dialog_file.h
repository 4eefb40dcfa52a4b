// The file that task dialogs are written in: XML, one element a dialog; resources/TaskDialogs.xaml is the
// product's, and says how its texts are read.
#pragma once

#include "platform/ui/user_interface.h"

#include <string_view>
#include <vector>

namespace drafta {

/// The dialogs in their order, with the names of variables where their values go. False, with the line and
/// the reason in `problem` and no dialogs, when the file is damaged, or a dialog is there twice or lacks a
/// text, a button or the default button: half a catalogue is none.
bool parseTaskDialogs(
    std::string_view bytes, std::vector<ryv::TaskDialogRequest>& dialogs, ryv::CString& problem);

} // namespace drafta
