// The package's catalogue of task dialogs.
#pragma once

#include "platform/ui/user_interface.h"

namespace ryv {

class TaskDialogs {
public:
    virtual ~TaskDialogs() = default;

    /// Loads the dialog of an ID ("RyvPageMan.SubfolderNameExists") with the values of `variables` filled
    /// into its texts; of several values of one name the last counts. False, `request` left alone, when the
    /// catalogue has no such dialog or cannot be read. Case counts.
    virtual bool load(CStringView id, const std::vector<std::pair<CString, CString>>& variables,
        TaskDialogRequest& request) = 0;
};

/// An empty catalogue.
class NullTaskDialogs final : public TaskDialogs {
public:
    bool load(CStringView, const std::vector<std::pair<CString, CString>>&, TaskDialogRequest&) override {
        return false;
    }
};

} // namespace ryv
