#include "programs/kqp/project_input.h"

#include "bridge/platform.h"

namespace kqp {

namespace {

/// What was under way when it failed, where the reason alone would not tell.
std::string_view activityOf(int error) {
    switch (error) {
    case ryv::RyvPmUtilsKQPFiler::cannotRead:
        return "cannot be read: ";
    case ryv::RyvPmUtilsKQPFiler::cannotWrite:
        return "cannot be written: ";
    case ryv::RyvPmUtilsKQPFiler::cannotWriteStore:
        return "written, but its companion store is not: ";
    default:
        return {};
    }
}

} // namespace

ryv::CString pathFromNative(const std::string& native) {
    return ryv::platform().os.paths->fromNative(native);
}

bool readOpenProject(
    const std::string& file, ryv::RyvPrmKQPFiler& filer, ryv::RyvPrmProjectData& project, Console& console) {
    if (filer.openProject(pathFromNative(file), false))
        filer.readProject(project);
    if (filer.getLastError() == ryv::RyvPmUtilsKQPFiler::noError)
        return true;
    reportFailure(file, filer, console);
    return false;
}

bool readProject(
    const std::string& file, ryv::RyvPrmKQPFiler& filer, ryv::RyvPrmProjectData& project, Console& console) {
    const bool read = readOpenProject(file, filer, project, console);
    filer.closeProject();
    return read;
}

void reportFailure(const std::string& file, const ryv::RyvPmUtilsKQPFiler& filer, Console& console) {
    std::string line = file + ": ";
    line.append(activityOf(filer.getLastError())).append(ryv::describe(filer.lastStatus().error));
    if (!filer.lastFile().empty() && filer.lastFile() != pathFromNative(file))
        line.append(" (").append(ryv::platform().os.paths->toNative(filer.lastFile())).append(")");
    complain(console, line);
}

} // namespace kqp
