// Evaluating texts and files.
#include "base/fold.h"
#include "base/text.h"
#include "embedded/lisp/lisp_file.h"
#include "embedded/lisp/reader.h"

namespace drafta::lisp {

namespace {

bool endsWithExtension(ryv::CStringView name) {
    return name.size() > 4 && ryv::equalNoCase(name.substr(name.size() - 4), u".lsp");
}

} // namespace

Value Machine::evaluateText(ryv::CStringView text, ryv::CStringView source) {
    const auto name = std::make_shared<const ryv::CString>(source);
    Reader reader(*this, text);
    Value value;
    while (const std::optional<Value> form = readForm(reader, name))
        value = evaluate(*form, {name, &reader.lines(), 0});
    return value;
}

/// Errors have the place that the reader has come to.
std::optional<Value> Machine::readForm(Reader& reader, const std::shared_ptr<const ryv::CString>& source) {
    try {
        return reader.next();
    } catch (const LispError&) {
        readingCode_.source = source;
        readingSite_.line = reader.line();
        site_ = &readingSite_;
        throw;
    }
}

Value Machine::loadFile(ryv::CStringView name) {
    ryv::CString path = services_->findFile(name);
    if (path.empty() && !endsWithExtension(name))
        path = services_->findFile(ryv::CString(name) + u".lsp");
    if (path.empty())
        throw LispError(u"no such file: " + ryv::CString(name));
    ryv::CString text;
    ryv::TextEncoding encoding;
    const ryv::FileStatus status = readText(*services_, path, limits_.bytes, text, encoding);
    if (!status.ok())
        throw LispError(path + u": " + ryv::fromAscii(ryv::describe(status.error)));
    return evaluateText(text, path);
}

} // namespace drafta::lisp
