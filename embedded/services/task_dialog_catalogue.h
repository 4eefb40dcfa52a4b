// The package's task dialogs, as they stand in the resources.
#pragma once

#include "platform/services/task_dialogs.h"

namespace drafta {

class TaskDialogCatalogue final : public ryv::TaskDialogs {
public:
    bool load(ryv::CStringView id, const std::vector<std::pair<ryv::CString, ryv::CString>>& variables,
        ryv::TaskDialogRequest& request) override;
};

} // namespace drafta
