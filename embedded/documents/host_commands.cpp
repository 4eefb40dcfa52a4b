// The commands that the host has by itself.
#include "base/encoding.h"
#include "base/fold.h"
#include "base/format.h"
#include "base/text.h"
#include "embedded/documents/host.h"
#include "embedded/services/host_texts.h"

#include <algorithm>
#include <cstdlib>

namespace drafta {

namespace {

constexpr ryv::CStringView group = u"DRAFTA";
constexpr std::uint32_t outside = ryv::CommandFlags::applicationContext;
constexpr std::uint32_t outsideTransparent = outside | ryv::CommandFlags::transparent;

/// Names beside each other, as many in a line as a terminal of usual width takes.
ryv::CString inColumns(const ryv::CStringArray& names) {
    constexpr std::size_t lineWidth = 78;
    std::size_t width = 0;
    for (const ryv::CString& name : names)
        width = std::max(width, name.size() + 2);
    const std::size_t columns = std::max<std::size_t>(1, lineWidth / std::max<std::size_t>(1, width));
    ryv::CString text;
    for (std::size_t i = 0; i < names.size(); ++i) {
        const bool last = (i + 1) % columns == 0 || i + 1 == names.size();
        text += u"  " + names[i];
        text += last ? ryv::CString(u"\n") : ryv::CString(width - names[i].size() - 2, u' ');
    }
    return text;
}

} // namespace

bool Host::addCommand(ryv::HostCommand command) {
    return commandLine_.stack().add(std::move(command));
}

void Host::addCommand(ryv::CStringView name, std::uint32_t flags, void (Host::*run)()) {
    addCommand(ryv::HostCommand{
        ryv::CString(group), ryv::CString(name), ryv::CString(name), flags, [this, run] { (this->*run)(); }});
}

void Host::defineCommands() {
    addCommand(u"OPEN", outside, &Host::runOpen);
    addCommand(u"NEW", outside, &Host::runNew);
    addCommand(u"QSAVE", ryv::CommandFlags::modal, &Host::runSave);
    addCommand(u"SAVEAS", ryv::CommandFlags::modal, &Host::runSaveAs);
    addCommand(u"CLOSE", outside, &Host::runClose);
    addCommand(u"QUIT", outside, &Host::runQuit);
    addCommand(u"SCRIPT", outside, &Host::runScript);
    addCommand(u"RYV_SCRIPT", outside, &Host::runScriptNow);
    addCommand(u"LOADMODULE", outside, &Host::runLoadModule);
    addCommand(u"UNLOADMODULE", outside, &Host::runUnloadModule);
    addCommand(u"MODULES", outsideTransparent, &Host::runListModules);
    addCommand(u"SETVAR", outsideTransparent, &Host::runSetVariable);
    addCommand(u"HELP", outsideTransparent, &Host::runHelp);
    definePaletteCommands();
}

/// A path as people write it, asked for again while the answer is empty and a person gives it.
ryv::CString Host::askPath(ryv::CStringView prompt) {
    const ryv::CString answer = commandLine_.ask(prompt);
    if (answer.empty())
        throw CommandCancelled();
    // What stands in the module's own form is taken as it is; both forms use "/" in the same way.
    const bool isModuleText = answer.find(u'\\') != ryv::CString::npos || answer.substr(1, 1) == u":";
    return isModuleText ? answer : paths().fromNative(ryv::nameToBytes(answer));
}

/// Says what was done with the current document's drawing.
void Host::tellOf(ryv::CStringView done) {
    const ryv::CString path = shownPath(documents_.fileName(documents_.currentDocument()));
    print(ryv::format(u"\n%s %s\n", {done, path}));
}

void Host::runOpen() {
    if (!openDocument(askPath(hostText(u"\nDrawing to open: "))))
        throw CommandCancelled();
    tellOf(hostText(u"Opened"));
}

void Host::runNew() {
    newDocument();
}

void Host::runSave() {
    if (!documents_.isNamed(documents_.currentDocument()))
        return runSaveAs();
    const ryv::DrawingResult result = documents_.save(documents_.currentDocument());
    tell(result);
    if (result.ok())
        tellOf(hostText(u"Saved"));
}

void Host::runSaveAs() {
    ryv::CString path = askPath(hostText(u"\nSave the drawing as: "));
    if (!ryv::equalNoCase(
            ryv::CStringView(path).substr(path.size() - std::min<std::size_t>(path.size(), 4)), u".dwg"))
        path += u".dwg";
    if (!mayReplace(path))
        throw CommandCancelled();
    const ryv::DrawingResult result = documents_.saveAs(documents_.currentDocument(), path);
    tell(result);
    if (result.ok())
        tellOf(hostText(u"Saved"));
}

/// True when nothing is lost by writing a file, or the user agrees.
bool Host::mayReplace(ryv::CStringView path) {
    ryv::FileInformation information;
    const Document* const own = documents_.findFile(path);
    if (!files().information(path, information).ok() || own == documents_.current())
        return true;
    ryv::MessageBoxRequest request;
    request.message = 2;
    request.text = ryv::format(hostText(u"%s exists already. Replace it?"), {shownPath(path)});
    request.caption = u"drafta";
    request.icon = ryv::MessageIcon::warning;
    request.buttons = ryv::MessageButtons::yesNo;
    return platform().ui->messageBox(request) == ryv::Answer::yes;
}

/// True when the current document may end: it has no changes, they were saved, or they are not wanted.
bool Host::keepChanges() {
    Document* const document = documents_.current();
    if (!document || !document->drawing->isModified())
        return true;
    ryv::MessageBoxRequest request;
    request.message = 1;
    request.text = ryv::format(hostText(u"Save the changes to %s?"), {shownPath(document->name)});
    request.caption = u"drafta";
    request.icon = ryv::MessageIcon::question;
    request.buttons = ryv::MessageButtons::yesNoCancel;
    const ryv::Answer answer = platform().ui->messageBox(request);
    if (answer != ryv::Answer::yes)
        return answer == ryv::Answer::no;
    if (!document->isNamed)
        return commandLine_.runCommand({u"_.SAVEAS"}) && !document->drawing->isModified();
    const ryv::DrawingResult result = documents_.save(document->id);
    tell(result);
    return result.ok();
}

void Host::runClose() {
    if (!documents_.hasCurrentDocument() || !keepChanges())
        return;
    if (!documents_.close(documents_.currentDocument()))
        print(hostText(u"\nSomething is still at work in the drawing.\n"));
}

void Host::runQuit() {
    if (questions_ > 0 || hasOpenDialog()) {
        print(hostText(u"\nA question is open: the host cannot end now.\n"));
        return;
    }
    for (const ryv::DocumentId id : documents_.documents()) {
        documents_.activate(id);
        if (!keepChanges())
            return;
    }
    if (editor_.mayQuit()) {
        hasQuit_ = true;
        commandLine_.end();
    } else {
        print(hostText(u"\nSomebody does not let the host end now.\n"));
    }
}

void Host::runScript() {
    commandLine_.queueScript(askPath(hostText(u"\nScript to run: ")));
}

void Host::runScriptNow() {
    if (!commandLine_.runScript(askPath(hostText(u"\nScript to run: "))))
        throw CommandCancelled();
}

void Host::runSetVariable() {
    const ryv::CString name = commandLine_.ask(hostText(u"\nName of the variable: "));
    ryv::SystemVariable value;
    if (!editor_.systemVariable(name, value)) {
        print(ryv::format(hostText(u"\nThere is no variable %s.\n"), {name}));
        return;
    }
    const ryv::CString text = commandLine_.ask(hostText(u"\nNew value: "));
    if (std::holds_alternative<std::int32_t>(value))
        value = static_cast<std::int32_t>(ryv::leadingInteger(text));
    else if (std::holds_alternative<ryv::CString>(value))
        value = text;
    else
        value = std::strtod(ryv::toAscii(text).c_str(), nullptr);
    if (!editor_.setSystemVariable(name, value))
        print(ryv::format(hostText(u"\n%s cannot be set.\n"), {name}));
}

void Host::runHelp() {
    ryv::CStringArray names;
    for (const auto& command : commandLine_.stack().commands())
        names.push_back(ryv::toUpper(command->localName));
    if (Document* const document = documents_.current())
        for (const ryv::CString& name : document->lisp->interpreter().commands())
            names.push_back(name);
    std::sort(names.begin(), names.end());
    names.erase(std::unique(names.begin(), names.end()), names.end());
    print(ryv::CString(hostText(u"\nCommands:\n")) + inColumns(names) +
          ryv::CString(hostText(u"A line that begins with \"(\" is LISP. Ctrl-C, or Esc in the window, "
                                u"breaks off what runs; QUIT "
                                u"leaves.\n")));
}

} // namespace drafta
