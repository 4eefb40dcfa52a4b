#include "embedded/documents/host.h"

#include "base/encoding.h"
#include "base/fold.h"
#include "base/paths.h"
#include "base/text.h"
#include "embedded/os/native_path.h"
#include "embedded/services/host_texts.h"
#include "resources/file_reasons.h"
#include "resources/language.h"
#include "siblings/file_content.h"
#include "toolkit/plain_text.h"

#include <cstdlib>
#include <filesystem>

namespace drafta {

Host::Host(HostOptions options)
    : options_(std::move(options)),
      searchPath_(*os_.platform().os.files,
          [this] {
              const Document* const document = documents_.current();
              return document && document->isNamed ? ryv::paths::folderOf(document->name) : ryv::CString();
          }),
      lispHost_{os_.platform(), documents_, commandLine_, editor_, inProfile(""),
          [this](ryv::CStringView text) { printError(text); },
          [this](const ryv::CString& problem) { return shown(problem); }, {}} {
    // Whoever keeps something there later finds it; when it cannot be made, that is when it is said.
    std::error_code ignored;
    std::filesystem::create_directories(joinNative(options_.profileFolder, "support"), ignored);
    fillPlatform();
    defineSearchPath();
    defineVariables();
    defineCommands();
    editor_.setBreakSource([this] { return commandLine_.takeInterrupt(); });
}

/// The modules with their palettes are still there.
Host::~Host() {
    commandLine_.takeInterrupt(); // what broke off the commands breaks nothing off that ends
    keepLayouts();
}

/// Something in the profile folder, or the folder itself, as module text.
ryv::CString Host::inProfile(std::string_view name) {
    return os_.platform().os.paths->fromNative(joinNative(options_.profileFolder, name));
}

ryv::CString Host::inProduct(std::string_view name) {
    return os_.platform().os.paths->fromNative(joinNative(options_.productFolder, name));
}

const char* Host::taskDialogsFile() {
    return ryv::language() == ryv::Language::german ? "resources/TaskDialogs.de.xaml"
                                                    : "resources/TaskDialogs.xaml";
}

/// Tells a line that begins with the path of a file.
std::function<void(ryv::CStringView)> Host::warning() {
    return [this](ryv::CStringView line) { printError(shown(ryv::CString(line)) + u"\n"); };
}

Documents::Parts Host::documentParts() {
    Documents::Parts parts;
    parts.files = os_.platform().os.files;
    parts.paths = os_.platform().os.paths;
    parts.commandLine = &commandLine_;
    parts.loaded = [this](ryv::DocumentId) {
        modules_.documentLoaded();
        if (const auto work = std::exchange(whenReady_, nullptr))
            work();
    };
    parts.saved = [this](ryv::CStringView path) { editor_.tellSaved(path); };
    parts.makeLisp = [this] {
        lisp::Services& services = *this;
        return std::make_unique<LispSession>(services, lispAtWork_, [this](lisp::Interpreter& interpreter) {
            lispPort_.connect(interpreter);
            defineDocumentFunctions(interpreter, lispHost_);
            defineDrawingFunctions(interpreter, lispHost_);
            defineQuestionFunctions(interpreter, lispHost_);
            defineProjectFunctions(interpreter, lispHost_);
            defineFileFunctions(interpreter, lispHost_);
        });
    };
    return parts;
}

MonitorOptions Host::monitorOptions() {
    MonitorOptions options;
    options.warn = [this](ryv::CStringView message) { printError(ryv::CString(message) + u"\n"); };
    return options;
}

/// Other programs of the host lie beside it.
ProjectDatabaseParts Host::databaseParts() {
    ryv::Platform& ports = os_.platform();
    ProjectDatabaseParts parts;
    parts.paths = ports.os.paths;
    parts.folders = &folders_;
    parts.updates = {ports.os.files, &loop_, ports.os.clock,
        [this](ryv::CStringView line) { printError(ryv::CString(line) + u"\n"); }};
    std::error_code error;
    const std::filesystem::path self = std::filesystem::read_symlink("/proc/self/exe", error);
    parts.reader.program = (self.parent_path() / "drafta-mdb-reader").string();
    return parts;
}

TextTerminal Host::terminal() {
    return {[this](ryv::CStringView text) { print(text); },
        [this](ryv::CStringView text) { printError(text); },
        [this](ryv::CStringView prompt) { return askPerson(prompt); },
        [this](ryv::CStringView path) { return paths().fromNative(ryv::nameToBytes(path)); },
        [this](ryv::CStringView path) { return shownPath(path); },
        [this](ryv::CStringView path) {
            ryv::FileInformation information;
            return files().information(path, information).ok();
        },
        [this] { return commandLine_.isInterrupted(); }};
}

void Host::fillPlatform() {
    ryv::Platform& ports = platform();
    ports.host.lisp = &lispPort_;
    ports.host.documents = &documents_;
    ports.host.commands = this;
    ports.host.console = this;
    ports.host.files = &searchPath_;
    ports.host.drawings = &drawingsPort_;
    ports.host.editor = &editor_;
    ports.host.profile = this;
    ports.host.mainWindow = &mainWindow_;
    ports.host.palettes = &palettes_;
    ports.os.registry = &registry_;
    ports.os.messages = &loop_;
    ports.os.monitor = &monitor_;
    ports.services.taskDialogs = &taskDialogs_;
    ports.services.catalogBrowser = &catalogBrowser_;
    ports.services.settings = &settings_;
    ports.services.userFolders = &folders_;
    ports.services.lockCheck = &lockCheck_;
    ports.services.clientManager = &clientManager_;
    ports.services.waitCursor = &waitCursor_;
    ports.services.help = &help_;
    ports.services.menuHook = &menuHook_;
    ports.services.projectDatabase = &projectDatabase_;
    if (options_.logsEvents)
        ports.services.eventLog = &eventLog_;
    ports.ui = &userInterface_;
}

void Host::setFrontEnd(FrontEnd frontEnd) {
    frontEnd_ = std::move(frontEnd);
    platform().ui = frontEnd_.userInterface;
    platform().services.waitCursor = frontEnd_.waitCursor;
    help_.setViewer(frontEnd_.showHelp);
}

bool Host::hasOpenDialog() const {
    return userInterface_.hasOpenDialog() || (frontEnd_.hasOpenDialog && frontEnd_.hasOpenDialog());
}

/// What the user has put into the profile is found before what the product brings.
void Host::defineSearchPath() {
    for (const char* const folder : {"support", "package"})
        searchPath_.add(inProfile(folder));
    for (const char* const folder : {"package", "support", "template"})
        searchPath_.add(paths().fromNative(joinNative(options_.productFolder, folder)));
    templateFolder_ = searchPath_.folders().back();
    // Not from a drawing's folder: whoever opens a drawing has not agreed to run what lies beside it.
    documents_.setPackage(searchPath_.findAmongFolders(u"package.lsp"));
}

void Host::defineVariables() {
    const auto name = [this] { return documents_.fileName(documents_.currentDocument()); };
    editor_.defineVariable(u"DWGNAME", [name] { return ryv::CString(ryv::paths::findFileName(name())); });
    editor_.defineVariable(u"DWGPREFIX", [this, name]() -> ryv::SystemVariable {
        const bool isNamed = documents_.isNamed(documents_.currentDocument());
        return isNamed ? ryv::paths::folderOf(name()) + u"\\" : ryv::CString();
    });
    editor_.defineVariable(u"DWGTITLED",
        [this]() -> ryv::SystemVariable { return documents_.isNamed(documents_.currentDocument()) ? 1 : 0; });
    editor_.defineVariable(u"DBMOD", [this]() -> ryv::SystemVariable {
        const Document* const document = documents_.current();
        return document && document->drawing->isModified() ? 1 : 0;
    });
    editor_.defineVariable(u"CleanScreenState", ryv::SystemVariable(0));
    editor_.defineVariable(
        u"LOCALE", []() -> ryv::SystemVariable { return ryv::CString(ryv::codeOf(ryv::language())); });
    editor_.defineVariable(
        u"COLORTHEME",
        [this]() -> ryv::SystemVariable { return mainWindow_.theme() == ryv::HostTheme::light ? 1 : 0; },
        [this](const ryv::SystemVariable& value) {
            const std::int32_t theme = std::get<std::int32_t>(value);
            if (theme == 0 || theme == 1)
                mainWindow_.setTheme(theme == 1 ? ryv::HostTheme::light : ryv::HostTheme::dark);
            return theme == 0 || theme == 1;
        });
    editor_.defineVariable(
        u"WAITCURSOR", [this]() -> ryv::SystemVariable { return waitCursor_.isShown() ? 1 : 0; });
    editor_.defineVariable(
        u"MENUHOOK", [this]() -> ryv::SystemVariable { return menuHook_.isThere() ? 1 : 0; });
    editor_.defineVariable(
        u"CATALOGCHANGES", [this]() -> ryv::SystemVariable { return catalogBrowser_.changes(); });
    editor_.defineVariable(u"CMDECHO", ryv::SystemVariable(1));
    editor_.defineVariable(u"USERI1", ryv::SystemVariable(0));
    editor_.defineVariable(u"USERR1", ryv::SystemVariable(0.0));
    editor_.defineVariable(u"USERS1", ryv::SystemVariable(ryv::CString()));
}

bool Host::newDocument() {
    ryv::DrawingResult result;
    const ryv::CString file = searchPath_.findFile(u"qdra.dwt");
    const ryv::DocumentId made = documents_.make(file, result);
    tell(result);
    return made != ryv::DocumentId::none;
}

bool Host::openDocument(ryv::CStringView path) {
    ryv::DrawingResult result;
    const ryv::DocumentId opened = documents_.open(path, result);
    tell(result);
    return opened != ryv::DocumentId::none;
}

bool Host::openProject(ryv::CStringView path) {
    ryv::FileInformation information;
    const ryv::FileStatus status = files().information(path, information);
    if (status.ok() && makeProjectActive(path))
        return true;
    const ryv::CString reason = !status.ok() ? ryv::fileReason(status.error)
                                : hasNameOfOpen(path)
                                    ? ryv::CString(hostText(u"a project of that name is open already"))
                                    : ryv::CString(hostText(u"the package does not take it"));
    print(u"\n" + shown(ryv::CString(path) + u": " + reason) + u"\n");
    return false;
}

ryv::CString Host::activeProject() const {
    const auto kept = lispHost_.blackboard.find(u"RYP-ACTIVE-PROJECT");
    const ryv::CString* const path = kept == lispHost_.blackboard.end() ? nullptr : kept->second.stringAt(0);
    return path ? *path : ryv::CString();
}

bool Host::hasNameOfOpen(ryv::CStringView path) {
    constexpr ryv::CStringView function = u"ryv_isProjectSameNameAsExisting";
    Document* const document = documents_.current();
    ryv::HostResultBuffer result;
    if (!document || !document->lisp->interpreter().expose(function))
        return false;
    lispPort_.invoke(ryv::HostResultBuffer().addString(function).addString(path), result);
    const std::int16_t* const answer = result.integerAt(0);
    return answer && *answer == 1;
}

/// Through the project manager, when it is loaded; otherwise the package's LISP alone knows of the project.
bool Host::makeProjectActive(ryv::CStringView path) {
    Document* const document = documents_.current();
    if (!document)
        return false;
    ryv::HostResultBuffer result;
    auto call = ryv::HostResultBuffer();
    if (document->lisp->interpreter().expose(u"ryv_openproject")) {
        call.addString(u"ryv_openproject").addString(path).addInteger(1);
        return lispPort_.invoke(call, result) == ryv::LispStatus::success && !result.empty() &&
               result.at(0).type == ryv::ResultType::truth;
    }
    document->lisp->interpreter().expose(u"ryv_makeproj_active");
    call.addString(u"ryv_makeproj_active").addString(path);
    return lispPort_.invoke(call, result) == ryv::LispStatus::success;
}

void Host::warnOfChanges() {
    for (const ryv::DocumentId id : documents_.documents()) {
        const Document* const document = documents_.find(id);
        if (document->drawing->isModified())
            printError(shown(document->name + u": the changes were not saved\n"));
    }
}

bool Host::loadLisp(ryv::CStringView path) {
    Document* const document = documents_.current();
    if (!document)
        return false;
    const ryv::DocumentId id = document->id;
    documents_.beginBusy(id);
    const bool loaded = document->lisp->load(path);
    documents_.endBusy(id);
    const std::size_t errors = lispErrors();
    commandLine_.runUntilIdle();
    return loaded && lispErrors() == errors;
}

std::size_t Host::lispErrors() {
    std::size_t errors = 0;
    for (const ryv::DocumentId id : documents_.documents())
        errors += documents_.find(id)->lisp->errors();
    return errors;
}

void Host::quit() {
    commandLine_.runCommand({u"_.QUIT"});
    commandLine_.runUntilIdle(); // takes note of an interrupt, which must not meet the next line
}

void Host::runLine(ryv::CStringView line) {
    isBehindEcho_ = false;
    commandLine_.type(line);
    commandLine_.runUntilIdle();
}

void Host::runPending() {
    if (questions_ == 0)
        commandLine_.runUntilIdle();
    else
        commandLine_.handleMessages();
}

ryv::CString Host::prompt() {
    return commandLine_.hasOpenExpression(documents_.currentDocument())
               ? ryv::CString(u"(_> ")
               : ryv::CString(hostText(u"Command: "));
}

void Host::interrupt() noexcept {
    commandLine_.interrupt();
    lispAtWork_.interrupt();
}

void Host::leave() noexcept {
    hasQuit_ = true;
    commandLine_.end();
    interrupt();
    loop_.quit();
}

/// Problems begin with the module's path of a file; people are shown the one that they know.
ryv::CString Host::shown(const ryv::CString& problem) {
    for (std::size_t colon = problem.find(u':'); colon != ryv::CString::npos;
         colon = problem.find(u':', colon + 1)) {
        const char16_t next = colon + 1 < problem.size() ? problem[colon + 1] : u' ';
        if (colon < 2 || (next != u' ' && (next < u'0' || next > u'9')))
            continue;
        const ryv::CString path = problem.substr(0, colon);
        return shownPath(path) + problem.substr(colon);
    }
    return problem;
}

void Host::tell(const ryv::DrawingResult& result) {
    if (!result.ok())
        print(u"\n" + shown(result.problem) + u"\n");
}

bool Host::evaluate(ryv::CStringView expression, ValueForm form, ryv::CString& value) {
    if (Document* const document = documents_.current())
        return document->lisp->evaluate(expression, form, value);
    print(hostText(u"\nThere is no document, and LISP belongs to documents.\n"));
    return false;
}

ryv::CString Host::shownPath(ryv::CStringView path) {
    const bool isRelative = ryv::paths::isRelative(path);
    return ryv::onOneLine(isRelative ? ryv::CString(path) : ryv::nameFromBytes(paths().toNative(path)));
}

bool Host::callLispCommand(ryv::CStringView name) {
    Document* const document = documents_.current();
    return document && document->lisp->callCommand(name);
}

std::optional<ryv::CString> Host::askPerson(ryv::CStringView prompt) {
    if (!options_.readLine || hasQuit_ || commandLine_.isInterrupted())
        return std::nullopt;
    isBehindEcho_ = false;
    ++questions_;
    const std::optional<std::string> line = options_.readLine(ryv::nameToBytes(prompt));
    --questions_;
    if (!line || hasQuit_ || commandLine_.isInterrupted())
        return std::nullopt;
    return ryv::decodeUtf8(*line);
}

bool Host::readScript(ryv::CStringView path, ryv::CString& text) {
    const ryv::CString found = searchPath_.findFile(path);
    const ryv::CString file = found.empty() ? ryv::CString(path) : found;
    ryv::ByteBuffer bytes;
    ryv::Fingerprint fingerprint;
    const ryv::FileStatus status = ryv::readWholeFile(files(), file, bytes, fingerprint);
    if (!status.ok()) {
        print(u"\n" + shown(file + u": " + ryv::fileReason(status.error)) + u"\n");
        return false;
    }
    ryv::TextEncoding encoding{};
    text = ryv::decodeDetecting(bytes.view(), encoding);
    return true;
}

void Host::breathe() {
    if (options_.breathe)
        options_.breathe();
}

void Host::echo(ryv::CStringView text) {
    print(text);
    isBehindEcho_ = true;
}

/// Most texts bring the line break in front of them themselves.
void Host::print(ryv::CStringView text) {
    if (!text.empty() && std::exchange(isBehindEcho_, false) && text.front() != u'\n')
        options_.print("\n");
    options_.print(ryv::nameToBytes(text));
}

std::optional<ryv::CString> Host::getEnvironment(ryv::CStringView name) {
    if (const auto hit = environment_.find(ryv::CString(name)); hit != environment_.end())
        return hit->second;
    const char* const value = std::getenv(ryv::nameToBytes(name).c_str());
    return value ? std::optional(ryv::nameFromBytes(value)) : std::nullopt;
}

void Host::setEnvironment(ryv::CStringView name, ryv::CStringView value) {
    environment_[ryv::CString(name)] = value;
}

ryv::CStringArray Host::supportFolders() {
    const auto& folders = searchPath_.folders();
    return ryv::CStringArray(folders.begin(), folders.end());
}

} // namespace drafta
