// What the two forms of "show" have in common.
#pragma once

#include "base/encoding.h"
#include "model/project_data.h"

namespace kqp {

struct ShownProject {
    const ryv::RyvPrmProjectData& project;
    const ryv::CString& path; ///< full path of the project file as module text
    ryv::TextEncoding encoding;

    /// The title of the file in upper case: the name by which the package knows a project.
    ryv::CString name() const;
};

} // namespace kqp
