// The package's task dialogs, as they stand in a file of the product.
#pragma once

#include "platform/os/files.h"
#include "platform/services/task_dialogs.h"

#include <functional>
#include <optional>

namespace drafta {

/// The file is read when the first dialog is asked for. When it is missing or damaged there are no dialogs,
/// which is told once.
class TaskDialogCatalogue final : public ryv::TaskDialogs {
public:
    /// `files` outlives the catalogue, `path` is module text. `warn` gets a line without its end, which
    /// begins with the path.
    TaskDialogCatalogue(ryv::Files& files, ryv::CString path, std::function<void(ryv::CStringView)> warn)
        : files_(files), path_(std::move(path)), warn_(std::move(warn)) {}

    /// All dialogs, with the names of variables where their values go.
    const std::vector<ryv::TaskDialogRequest>& dialogs();

    bool load(ryv::CStringView id, const std::vector<std::pair<ryv::CString, ryv::CString>>& variables,
        ryv::TaskDialogRequest& request) override;

private:
    std::vector<ryv::TaskDialogRequest> read();

    ryv::Files& files_;
    ryv::CString path_;
    std::function<void(ryv::CStringView)> warn_;
    std::optional<std::vector<ryv::TaskDialogRequest>> dialogs_;
};

} // namespace drafta
