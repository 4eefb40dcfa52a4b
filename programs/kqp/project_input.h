// A project file named on the command line, read into memory.
#pragma once

#include "model/kqp_filer.h"
#include "programs/kqp/terminal/console.h"

#include <string>

namespace kqp {

/// The module's path text for a name of the command line.
ryv::CString pathFromNative(const std::string& native);

/// Opens the file for reading, reads it and closes it. When that fails, says so in one line on standard error
/// that names the file as the user did. The filer keeps the path and the encoding of what it read.
[[nodiscard]] bool readProject(
    const std::string& file, ryv::RyvPrmKQPFiler& filer, ryv::RyvPrmProjectData& project, Console& console);

/// The same, but the file stays open: what was read of it lives as long as the filer has it open.
[[nodiscard]] bool readOpenProject(
    const std::string& file, ryv::RyvPrmKQPFiler& filer, ryv::RyvPrmProjectData& project, Console& console);

/// Says in one line why the filer's last operation failed. `file` is the project file as the user named it;
/// another file that the failure concerns is named too.
void reportFailure(const std::string& file, const ryv::RyvPmUtilsKQPFiler& filer, Console& console);

} // namespace kqp
