// Drawings as people know them: by their path from the project's folder, as this machine writes paths.
#pragma once

#include "model/file_details.h"

#include <string>

namespace kqp {

class DrawingNames {
public:
    /// `project` is the full path of the project file as module text.
    explicit DrawingNames(ryv::CStringView project);

    /// The drawing's path relative to the project's folder with "/" between components, or its full native
    /// path when there is no relative one; harmless to a terminal.
    std::string shown(const ryv::RyvPrmFileDetails& drawing) const;

private:
    ryv::CString folder_;
};

} // namespace kqp
