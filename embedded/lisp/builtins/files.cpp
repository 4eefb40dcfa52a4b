// Files and their names.
#include "embedded/lisp/builtins/builtins.h"
#include "embedded/lisp/lisp_file.h"
#include "embedded/lisp/printer.h"

#include "base/fold.h"
#include "base/paths.h"

namespace drafta::lisp {

namespace {

ryv::CString pathArgument(Machine& machine, Value value) {
    return machine.services().paths().fullPath(pathText(value));
}

/// nil when the file cannot be opened.
Value open(Machine& machine, Arguments arguments) {
    const ryv::CString mode = ryv::toLower(textArgument(arguments[1]));
    if (mode != u"r" && mode != u"w" && mode != u"a")
        throw LispError(u"open knows the modes \"r\", \"w\" and \"a\"");
    const ryv::CString path = pathArgument(machine, arguments[0]);
    const std::size_t room = machine.heap().room();
    auto file = LispFile::open(machine.services(), path, mode, room / sizeof(char16_t));
    if (!file)
        return {};
    const std::size_t bytes = file->bytes();
    return Value::of(machine.heap().make<File>(bytes, std::move(file)));
}

File& fileArgument(Value value) {
    if (value.kind() != Kind::file)
        throw LispError(u"bad argument type: a file is wanted, not " + briefly(value));
    File& file = *static_cast<File*>(value.object());
    if (!file.file)
        throw LispError(u"the file is closed");
    return file;
}

Value close(Machine&, Arguments arguments) {
    File& file = fileArgument(arguments[0]);
    const ryv::CString name = file.file->name();
    const bool closed = file.file->close();
    file.file.reset();
    if (!closed)
        throw LispError(u"cannot write " + name);
    return {};
}

/// nil at the end of the file. The command line cannot be read from: without a file the result is nil too.
Value readLine(Machine& machine, Arguments arguments) {
    if (optional(arguments, 0).isNil())
        return {};
    const std::optional<ryv::CString> line = fileArgument(arguments[0]).file->readLine();
    return line ? machine.string(*line) : Value();
}

Value readUnit(Machine&, Arguments arguments) {
    if (optional(arguments, 0).isNil())
        return {};
    const std::optional<char16_t> unit = fileArgument(arguments[0]).file->readUnit();
    return unit ? Value::integer(*unit) : Value();
}

Value find(Machine& machine, Arguments arguments) {
    const ryv::CString path = machine.services().findFile(pathText(arguments[0]));
    return path.empty() ? Value() : machine.string(path);
}

Value remove(Machine& machine, Arguments arguments) {
    return machine.boolean(machine.services().files().remove(pathArgument(machine, arguments[0])).ok());
}

/// nil when there is no such file; 0 for a folder.
Value size(Machine& machine, Arguments arguments) {
    ryv::FileInformation information;
    if (!machine.services().files().information(pathArgument(machine, arguments[0]), information).ok())
        return {};
    return machine.interpreter().makeNumber(
        information.isFolder ? 0 : static_cast<long long>(information.size));
}

Value isFolder(Machine& machine, Arguments arguments) {
    ryv::FileInformation information;
    const ryv::CString path = pathArgument(machine, arguments[0]);
    return machine.boolean(
        machine.services().files().information(path, information).ok() && information.isFolder);
}

/// The name without folder and extension.
Value baseName(Machine& machine, Arguments arguments) {
    return machine.string(ryv::paths::removeExtension(ryv::paths::findFileName(textArgument(arguments[0]))));
}

/// With the full stop; nil when there is none.
Value extension(Machine& machine, Arguments arguments) {
    const ryv::CStringView found = ryv::paths::findExtension(textArgument(arguments[0]));
    return found.empty() ? Value() : machine.string(found);
}

/// Without a separator at the end, unless it is the root; empty when there is none.
Value folder(Machine& machine, Arguments arguments) {
    const ryv::CStringView path = textArgument(arguments[0]);
    const std::size_t end = path.find_last_of(u"\\/");
    if (end == ryv::CStringView::npos)
        return machine.string(u"");
    const bool isRoot = end == 0 || path[end - 1] == u':';
    return machine.string(path.substr(0, isRoot ? end + 1 : end));
}

constexpr Definition definitions[] = {
    {u"open", 2, 2, open},
    {u"close", 1, 1, close},
    {u"read-line", 0, 1, readLine},
    {u"read-char", 0, 1, readUnit},
    {u"findfile", 1, 1, find},
    {u"vl-file-delete", 1, 1, remove},
    {u"vl-file-size", 1, 1, size},
    {u"vl-file-directory-p", 1, 1, isFolder},
    {u"vl-filename-base", 1, 1, baseName},
    {u"vl-filename-extension", 1, 1, extension},
    {u"vl-filename-directory", 1, 1, folder},
};

} // namespace

void defineFiles(Machine& machine) {
    defineAll(machine, definitions);
}

} // namespace drafta::lisp
