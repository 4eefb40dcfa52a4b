#include "embedded/documents/lisp_arguments.h"
#include "embedded/documents/lisp_functions.h"
#include "embedded/documents/project_text.h"

#include "base/fold.h"

namespace drafta {

namespace {

using lisp::Arguments;
using lisp::Interpreter;
using lisp::Value;

/// The project files that a document's LISP has read, each with what it held then.
class KnownProjects {
public:
    explicit KnownProjects(LispHost& host) noexcept : host_(host) {}

    ProjectText& of(const ryv::CString& path) {
        auto& project = projects_[ryv::toUpper(path)];
        if (!project)
            project = std::make_unique<ProjectText>(*host_.platform.os.files);
        return *project;
    }
    LispHost& host() noexcept { return host_; }

private:
    LispHost& host_;
    std::map<ryv::CString, std::unique_ptr<ProjectText>> projects_;
};

Value numbered(Interpreter& lisp, const std::map<int, ryv::CString>& values) {
    lisp::ListBuilder list(lisp);
    for (const auto& [index, value] : values)
        list.add(lisp.cons(Value::integer(index), lisp.makeString(value)));
    return list.take();
}

Value section(Interpreter& lisp, ryv::CStringView name, Value content) {
    const lisp::Root kept(lisp, content);
    return lisp.cons(lisp.makeString(name), kept);
}

ryv::CString fullPath(Interpreter& lisp, LispHost& host, Value path) {
    return host.platform.os.paths->fullPath(pathArgument(lisp, path));
}

Value projectRead(Interpreter& lisp, KnownProjects& known, Arguments given) {
    LispHost& host = known.host();
    const ryv::CString path = fullPath(lisp, host, given[0]);
    ProjectText& project = known.of(path);
    ProjectText::Content content;
    if (!project.read(path, content)) {
        printProblem(lisp, host, project.problem());
        return {};
    }
    lisp::ListBuilder sections(lisp);
    sections.add(section(lisp, u"descriptions", stringList(lisp, content.descriptions)));
    sections.add(section(lisp, u"misc", numbered(lisp, content.misc.values())));
    sections.add(section(lisp, u"settings", numbered(lisp, content.settings)));
    sections.add(section(lisp, u"lines", stringList(lisp, content.lines)));
    return sections.take();
}

/// What an earlier (project-read) of this document saw is the state that the change is meant for; without one
/// it is what the file holds now.
Value projectWrite(Interpreter& lisp, KnownProjects& known, Arguments given) {
    LispHost& host = known.host();
    const ryv::CString path = fullPath(lisp, host, given[0]);
    const ryv::CString name = given[1].isCons() ? stringArgument(lisp, given[1].car()) : ryv::CString();
    const ryv::CStringArray lines = stringsArgument(lisp, given[1].cdr());
    const bool isDescriptions = ryv::equalNoCase(name, u"descriptions");
    if (!isDescriptions && !ryv::equalNoCase(name, u"lines"))
        throw lisp::LispError(u"no section that can be written: " + lisp.printed(given[1]));
    ProjectText& project = known.of(path);
    const std::optional<ryv::Fingerprint> seen = project.knownContent();
    ProjectText::Content content;
    bool written = project.read(path, content);
    (isDescriptions ? content.descriptions : content.lines) = lines;
    if (seen) // what was read just now is for filling in the other sections only
        project.expectContent(*seen);
    written = written && project.write(content);
    if (!written)
        printProblem(lisp, host, project.problem());
    return lisp.boolean(written);
}

} // namespace

void defineProjectFunctions(Interpreter& interpreter, LispHost& host) {
    const auto known = std::make_shared<KnownProjects>(host);
    interpreter.define(u"project-read", 1, 1,
        [known](Interpreter& lisp, Arguments given) { return projectRead(lisp, *known, given); });
    interpreter.define(u"project-write", 2, 2,
        [known](Interpreter& lisp, Arguments given) { return projectWrite(lisp, *known, given); });
}

} // namespace drafta
