#include "programs/kqp/rewrite.h"

#include "base/fold.h"
#include "base/paths.h"
#include "bridge/platform.h"
#include "programs/kqp/project_input.h"

#include <optional>

namespace kqp {

namespace {

/// Opening for writing takes a missing file for a new, empty project; here it is a mistyped name.
bool exists(const std::string& file, Console& console) {
    ryv::FileInformation information;
    const ryv::FileStatus status = ryv::platform().os.files->information(pathFromNative(file), information);
    if (!status.ok())
        complain(console, file + ": " + ryv::describe(status.error));
    return status.ok();
}

/// The name of the file that a name leads to when only letters of another case stand on the disk, or nothing.
/// Such a file is found by every reader, but a new file given another name must not replace it unseen.
std::optional<std::string> otherSpelling(const std::string& file) {
    const ryv::CString path = pathFromNative(file);
    ryv::CString resolved;
    if (!ryv::platform().os.files->resolve(path, resolved).ok())
        return std::nullopt;
    const ryv::CStringView asked = ryv::paths::findFileName(path);
    const ryv::CStringView found = ryv::paths::findFileName(resolved);
    if (asked == found || !ryv::equalNoCase(asked, found))
        return std::nullopt;
    return ryv::platform().os.paths->toNative(found);
}

int reported(const std::string& file, const ryv::RyvPmUtilsKQPFiler& filer, Console& console) {
    reportFailure(file, filer, console);
    return failed;
}

/// The project may be in place while its companion store is not; that is a failure here.
int write(
    const std::string& file, ryv::RyvPrmKQPFiler& filer, ryv::RyvPrmProjectData& project, Console& console) {
    if (filer.writeProject(project) && filer.getLastError() == ryv::RyvPmUtilsKQPFiler::noError)
        return done;
    return reported(file, filer, console);
}

} // namespace

int rewriteInPlace(const std::string& file, bool relativePaths, Console& console) {
    if (!exists(file, console))
        return failed;
    ryv::RyvPrmKQPFiler filer(relativePaths);
    ryv::RyvPrmProjectData project;
    if (!filer.openProject(pathFromNative(file), true))
        return reported(file, filer, console);
    filer.readProject(project);
    if (filer.getLastError() != ryv::RyvPmUtilsKQPFiler::noError)
        return reported(file, filer, console); // what could not be read must not be written over
    return write(file, filer, project, console);
}

int rewriteTo(const std::string& file, const std::string& output, bool relativePaths, Console& console) {
    ryv::RyvPrmKQPFiler reader(relativePaths);
    ryv::RyvPrmProjectData project;
    if (!readProject(file, reader, project, console))
        return failed;
    if (const auto other = otherSpelling(output)) {
        complain(console, output + ": there is a file of this name in other letters, " + *other);
        return failed;
    }
    ryv::RyvPrmKQPFiler writer(relativePaths);
    if (!writer.openProject(pathFromNative(output), true))
        return reported(output, writer, console);
    writer.setEncoding(reader.sections().encoding());
    return write(output, writer, project, console);
}

} // namespace kqp
