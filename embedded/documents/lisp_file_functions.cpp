#include "base/encoding.h"
#include "base/paths.h"
#include "embedded/documents/lisp_arguments.h"
#include "embedded/documents/lisp_functions.h"
#include "embedded/services/zip_file.h"

namespace drafta {

namespace {

using lisp::Arguments;
using lisp::Interpreter;
using lisp::Value;

Value maybe(Interpreter& lisp, const std::optional<ryv::CString>& text) {
    return text ? lisp.makeString(*text) : Value();
}

void definePaths(Interpreter& interpreter, LispHost& host) {
    interpreter.define(u"path-full", 1, 1, [&host](Interpreter& lisp, Arguments given) {
        return lisp.makeString(host.platform.os.paths->fullPath(pathArgument(lisp, given[0])));
    });
    interpreter.define(u"path-combine", 2, 2, [](Interpreter& lisp, Arguments given) {
        return maybe(lisp, ryv::paths::combine(pathArgument(lisp, given[0]), pathArgument(lisp, given[1])));
    });
    interpreter.define(u"path-folder", 1, 1, [](Interpreter& lisp, Arguments given) {
        return lisp.makeString(ryv::paths::folderOf(pathArgument(lisp, given[0])));
    });
    interpreter.define(u"path-name", 1, 1, [](Interpreter& lisp, Arguments given) {
        return lisp.makeString(ryv::CString(ryv::paths::findFileName(pathArgument(lisp, given[0]))));
    });
    interpreter.define(u"path-native", 1, 1, [&host](Interpreter& lisp, Arguments given) {
        const std::string native = host.platform.os.paths->toNative(pathArgument(lisp, given[0]));
        return lisp.makeString(ryv::nameFromBytes(native));
    });
    interpreter.define(u"path-relative", 2, 2, [](Interpreter& lisp, Arguments given) {
        std::optional<ryv::CString> path =
            ryv::paths::relativePathTo(pathArgument(lisp, given[0]), pathArgument(lisp, given[1]));
        if (path && path->starts_with(u".\\"))
            path->erase(0, 2);
        return maybe(lisp, path);
    });
}

/// ((file . name) ...) as entries of an archive.
std::vector<ZipEntry> entriesArgument(Interpreter& lisp, const LispHost& host, Value value) {
    std::vector<ZipEntry> entries;
    for (const Value pair : listArgument(lisp, value)) {
        if (!pair.isCons())
            throw lisp::LispError(u"not a pair of a file and a name: " + lisp.printed(pair));
        const ryv::CString file = pathArgument(lisp, pair.car());
        entries.emplace_back(host.platform.os.paths->toNative(file), stringArgument(lisp, pair.cdr()));
    }
    return entries;
}

Value zipWrite(Interpreter& lisp, LispHost& host, Arguments given) {
    const std::string target = host.platform.os.paths->toNative(pathArgument(lisp, given[0]));
    ryv::CString problem;
    if (writeZip(target, entriesArgument(lisp, host, given[1]), problem))
        return lisp.truth();
    printProblem(lisp, host, problem);
    return {};
}

} // namespace

void defineFileFunctions(Interpreter& interpreter, LispHost& host) {
    definePaths(interpreter, host);
    interpreter.define(u"file-exists", 1, 1, [&host](Interpreter& lisp, Arguments given) {
        ryv::FileInformation information;
        const ryv::CString path = pathArgument(lisp, given[0]);
        return lisp.boolean(
            host.platform.os.files->information(path, information).ok() && !information.isFolder);
    });
    interpreter.define(u"profile-folder", 0, 0,
        [&host](Interpreter& lisp, Arguments) { return lisp.makeString(host.profileFolder); });
    interpreter.define(u"zip-write", 2, 2,
        [&host](Interpreter& lisp, Arguments given) { return zipWrite(lisp, host, given); });
    interpreter.define(u"print-error", 1, 1, [&host](Interpreter& lisp, Arguments given) {
        host.printError(stringArgument(lisp, given[0]));
        return Value();
    });
}

} // namespace drafta
