#include "programs/kqp/commands.h"

#include "programs/kqp/check.h"
#include "programs/kqp/documents/help_text.h"
#include "programs/kqp/lock_status.h"
#include "programs/kqp/options.h"
#include "programs/kqp/project_input.h"
#include "programs/kqp/rewrite.h"
#include "programs/kqp/show_json.h"
#include "programs/kqp/show_text.h"
#include "programs/kqp/terminal/style.h"
#include "programs/kqp/usage.h"
#include "programs/kqp/watch/watch.h"

namespace kqp {

namespace {

ColorChoice colorChoiceOf(const Arguments& arguments) {
    const std::string* const when = arguments.value("color");
    if (when == nullptr || *when == "auto")
        return ColorChoice::automatic;
    return *when == "always" ? ColorChoice::always : ColorChoice::never;
}

} // namespace

int runShow(const Arguments& arguments, Console& console) {
    ryv::RyvPrmKQPFiler filer(true);
    ryv::RyvPrmProjectData project;
    if (!readProject(arguments.operands().front(), filer, project, console))
        return failed;
    const ShownProject shown{project, filer.projectPath(), filer.sections().encoding()};
    if (arguments.has("json"))
        showJson(shown, console.out);
    else
        showText(shown, Painter(wantsColor(colorChoiceOf(arguments), console.out.descriptor())), console.out);
    return finishOutput(console, done);
}

int runEqual(const Arguments& arguments, Console& console) {
    ryv::RyvPrmKQPFiler filer(true);
    ryv::RyvPrmProjectData a;
    if (!readProject(arguments.operands()[0], filer, a, console))
        return failed;
    ryv::RyvPrmKQPFiler otherFiler(true);
    ryv::RyvPrmProjectData b;
    if (!readProject(arguments.operands()[1], otherFiler, b, console))
        return failed;
    return a == b ? done : answerIsNo;
}

int runCheck(const Arguments& arguments, Console& console) {
    return check(arguments.operands().front(), console);
}

int runRewrite(const Arguments& arguments, Console& console) {
    const bool relativePaths = !arguments.has("absolute");
    const std::string& file = arguments.operands().front();
    if (const std::string* const output = arguments.value("output"))
        return rewriteTo(file, *output, relativePaths, console);
    return rewriteInPlace(file, relativePaths, console);
}

int runLockStatus(const Arguments& arguments, Console& console) {
    return lockStatus(arguments.operands().front(), console);
}

int runWatch(const Arguments& arguments, Console& console) {
    const EventForm form = arguments.has("json") ? EventForm::json : EventForm::text;
    return watch(arguments.operands().front(), form, console);
}

int runHelp(const Arguments& arguments, Console& console) {
    if (arguments.operands().empty()) {
        console.out.write(programHelp());
        return finishOutput(console, done);
    }
    const std::string& name = arguments.operands().front();
    const Command* const command = findCommand(name);
    if (command == nullptr)
        return complainOfUsage(console, "there is no command '" + name + "'");
    console.out.write(commandHelp(*command));
    return finishOutput(console, done);
}

} // namespace kqp
