// The embedded host, put together: documents, command line, LISP, drawings, questions and the ports on them.
#pragma once

#include "base/encoding.h"
#include "embedded/database/host_project_database.h"
#include "embedded/documents/command_line.h"
#include "embedded/documents/documents.h"
#include "embedded/documents/drawings_port.h"
#include "embedded/documents/editor.h"
#include "embedded/documents/lisp_functions.h"
#include "embedded/documents/lisp_port.h"
#include "embedded/documents/modules.h"
#include "embedded/loop/epoll_message_loop.h"
#include "embedded/monitor/inotify_monitor.h"
#include "embedded/os/posix_platform.h"
#include "embedded/palettes/main_window.h"
#include "embedded/palettes/palette_framework.h"
#include "embedded/registry/file_registry.h"
#include "embedded/services/catalog_browser.h"
#include "embedded/services/client_manager.h"
#include "embedded/services/event_log.h"
#include "embedded/services/help_pages.h"
#include "embedded/services/menu_hook.h"
#include "embedded/services/package_lock_check.h"
#include "embedded/services/profile_folders.h"
#include "embedded/services/registry_settings.h"
#include "embedded/services/search_path.h"
#include "embedded/services/task_dialog_catalogue.h"
#include "embedded/services/text_user_interface.h"
#include "embedded/services/wait_cursor.h"

namespace drafta {

/// Where the host finds things and what it talks through. Folders and texts are native bytes.
struct HostOptions {
    std::string profileFolder; ///< for what the user sets; made when it is missing
    std::string productFolder; ///< with the folders "help", "package", "resources", "support" and
                               ///< "template"
    std::function<void(std::string_view)> print;      ///< on the command line
    std::function<void(std::string_view)> printError; ///< beside it
    /// A line from the person in front of the terminal, without its end; nothing when nobody is there.
    std::function<std::optional<std::string>(std::string_view prompt)> readLine;
    /// Called in the middle of long LISP when Host::requestBreath() asked for it.
    std::function<void()> breathe = nullptr;
    bool logsEvents = false;     ///< what happens to projects goes to printError
    Screen screen{};             ///< that the main window stands on
    bool isInBackground = false; ///< the host works for another program and shows no palettes
};

class Host final : private CommandLineSite,
                   private lisp::Services,
                   private ryv::HostCommands,
                   private ryv::HostConsole,
                   private ryv::HostProfile {
public:
    explicit Host(HostOptions options);
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;
    ~Host() override;

    ryv::Platform& platform() noexcept { return os_.platform(); }
    PathMapper& mapper() noexcept { return os_.mapper(); }
    Documents& documents() noexcept { return documents_; }
    CommandLine& commandLine() noexcept { return commandLine_; }
    TextUserInterface& userInterface() noexcept { return userInterface_; }
    PaletteFramework& palettes() noexcept { return palettes_; }
    HostProjectDatabase& projectDatabase() noexcept { return projectDatabase_; }
    MainWindow& mainWindow() noexcept { return mainWindow_; }
    WaitCursor& waitCursor() noexcept { return waitCursor_; }

    /// Lets a window ask the questions, show the wait cursor and the help, and say whether a dialog is open
    /// in it; before modules are loaded. They outlive the host.
    struct FrontEnd {
        ryv::UserInterface* userInterface;
        ryv::WaitCursor* waitCursor;
        std::function<bool()> hasOpenDialog;
        std::function<void(ryv::CStringView file)> showHelp = nullptr; ///< a page by its module path
    };
    void setFrontEnd(FrontEnd frontEnd);

    /// A question of the window stands, or no longer does; they nest. Meanwhile messages are handled, and
    /// queued commands wait.
    void questionStands(bool stands) noexcept { questions_ += stands ? 1 : -1; }

    /// Makes a document of the product's template, or opens a drawing; false after a failure, which is
    /// printed.
    bool newDocument();
    bool openDocument(ryv::CStringView path);

    /// Runs `work` once: in the first document, when its LISP is ready, before it is told to be active.
    void whenReady(std::function<void()> work) { whenReady_ = std::move(work); }

    /// Makes a project the active one of the package; false, with the reason printed, when it cannot be.
    bool openProject(ryv::CStringView path);

    /// The path of the project that the package's LISP takes for the active one; empty when there is none.
    ryv::CString activeProject() const;

    /// Loads a plug-in module by the native path of its file; false, with one line in `problem`, when that
    /// cannot be done.
    bool loadModule(const std::string& file, std::string& problem);

    /// Says beside the command line which drawings have changes that are not saved.
    void warnOfChanges();

    /// Loads a LISP file in the current document and runs what it queues; false after an error in either,
    /// which is printed.
    bool loadLisp(ryv::CStringView path);

    /// Runs a line as typed on the command line, and what it queues.
    void runLine(ryv::CStringView line);

    /// Does what became due while the person was waited for: timers, notices of changed files, and when no
    /// question stands the commands that these queue.
    void runPending();

    /// Readable when there is something for runPending() to do.
    int pendingDescriptor() const noexcept { return loop_.descriptor(); }

    /// What the next line is asked for with: the command prompt, or the one for the rest of an expression.
    ryv::CString prompt();

    /// Breaks off what runs. May be called from a signal handler.
    void interrupt() noexcept;

    /// Has LISP that is at work call HostOptions::breathe once, soon. May be called from a signal handler of
    /// the main thread.
    void requestBreath() noexcept { lispAtWork_.requestBreath(); }

    /// Saves where the palettes are, as the host does at its end.
    void keepLayouts();

    /// Asks to leave, as the command QUIT does.
    void quit();

    /// Leaves without asking anybody anything: what runs is broken off, nothing more begins, all questions
    /// are cancelled, and pendingDescriptor() becomes readable. LISP that begins at this very moment is
    /// missed, so whoever must be sure calls again. May be called from a signal handler.
    void leave() noexcept;

    /// True when the host was made to leave, or the user has asked to and nothing keeps it running.
    bool hasQuit() const noexcept { return hasQuit_; }

private:
    Documents::Parts documentParts();
    TextTerminal terminal();
    MonitorOptions monitorOptions();
    ProjectDatabaseParts databaseParts();
    ryv::CString inProfile(std::string_view name);
    ryv::CString inProduct(std::string_view name);
    static const char* taskDialogsFile();
    std::function<void(ryv::CStringView)> warning();
    void printError(ryv::CStringView text) { options_.printError(ryv::nameToBytes(text)); }
    void fillPlatform();
    void defineSearchPath();
    void defineVariables();
    void defineCommands();
    void addCommand(ryv::CStringView name, std::uint32_t flags, void (Host::*run)());
    ryv::CString shown(const ryv::CString& problem);
    ryv::CString askPath(ryv::CStringView prompt);
    void tell(const ryv::DrawingResult& result);
    void tellOf(ryv::CStringView done);
    bool keepChanges();
    bool hasOpenDialog() const;
    bool mayReplace(ryv::CStringView path);
    std::size_t lispErrors();
    bool makeProjectActive(ryv::CStringView path);
    bool hasNameOfOpen(ryv::CStringView path);

    void runOpen();
    void runNew();
    void runSave();
    void runSaveAs();
    void runClose();
    void runQuit();
    void runScript();
    void runScriptNow();
    void runHelp();
    void runSetVariable();
    void definePaletteCommands();
    void setCleanScreen(bool clean);

    void runShowPalettes();
    void runPalette();
    void runSaveWorkspace();
    void runLoadWorkspace();
    void runLoadModule();
    void runUnloadModule();
    void runListModules();

    // CommandLineSite
    ryv::DocumentId currentDocument() override { return documents_.currentDocument(); }
    void activate(ryv::DocumentId document) override { documents_.activate(document); }
    void beginBusy(ryv::DocumentId document) override { documents_.beginBusy(document); }
    void endBusy(ryv::DocumentId document) override { documents_.endBusy(document); }
    void lockModeChanged(ryv::DocumentId document, ryv::CStringView command) override {
        documents_.lockModeChanged(document, command);
    }
    void settle() override { documents_.settle(); }
    void handleMessages() override { loop_.pump(); }
    bool evaluate(ryv::CStringView expression, ValueForm form, ryv::CString& value) override;
    ryv::CString shownPath(ryv::CStringView path) override;
    bool callLispCommand(ryv::CStringView name) override;
    std::optional<ryv::CString> askPerson(ryv::CStringView prompt) override;
    bool readScript(ryv::CStringView path, ryv::CString& text) override;
    void echo(ryv::CStringView text) override;

    // CommandLineSite, lisp::Services and ryv::HostConsole
    void print(ryv::CStringView text) override;
    void breathe() override;

    // lisp::Services
    ryv::Files& files() override { return *platform().os.files; }
    ryv::SystemPaths& paths() override { return *platform().os.paths; }
    ryv::CString findFile(ryv::CStringView name) override { return searchPath_.findFile(name); }
    std::optional<ryv::CString> getEnvironment(ryv::CStringView name) override;
    void setEnvironment(ryv::CStringView name, ryv::CStringView value) override;

    // ryv::HostCommands
    bool addCommand(ryv::HostCommand command) override;
    bool removeGroup(ryv::CStringView group) override { return commandLine_.stack().removeGroup(group); }
    bool runCommand(const ryv::CStringArray& words) override { return commandLine_.runCommand(words); }

    // ryv::HostProfile
    ryv::CString profileKey() override { return u"Software\\drafta\\Profiles\\Default"; }
    ryv::CString productKey() override { return u"Software\\drafta"; }
    ryv::CString templateFolder() override { return templateFolder_; }
    ryv::CStringArray supportFolders() override;

    HostOptions options_;
    PosixPlatform os_;
    EpollMessageLoop loop_;
    InotifyMonitor monitor_{loop_, *os_.platform().os.files, os_.mapper(), monitorOptions()};
    FileRegistry registry_{*os_.platform().os.files, inProfile("registry.txt"),
        [this](ryv::CStringView line) { printError(shown(ryv::CString(line)) + u"\n"); }};
    RegistrySettings settings_{registry_, u"Software\\drafta\\Package"};
    ProfileFolders folders_{settings_, inProfile("")};
    HostProjectDatabase projectDatabase_{databaseParts()};
    ToldCatalogBrowser catalogBrowser_;
    TaskDialogCatalogue taskDialogs_{*os_.platform().os.files, inProduct(taskDialogsFile()), warning()};
    MainWindow mainWindow_{
        loop_, options_.screen, options_.isInBackground, [this] { return documents_.hasCurrentDocument(); }};
    Workspace workspace_{*os_.platform().os.files, inProfile("workspace.xml"), warning()};
    PaletteFramework palettes_{{loop_, mainWindow_, workspace_, warning()}};
    ClientManager clientManager_;
    MenuHook menuHook_;
    WaitCursor waitCursor_;
    HelpPages help_{
        *os_.platform().os.files, inProduct("help"), [this](ryv::CStringView text) { print(text); }};
    PrintedEventLog eventLog_{[this](ryv::CStringView text) { printError(text); },
        [this](ryv::CStringView path) { return ryv::nameFromBytes(paths().toNative(path)); }};
    CommandLine commandLine_{*this};
    Documents documents_{documentParts()};
    LispPort lispPort_{documents_};
    PackageLockCheck lockCheck_{lispPort_};
    DrawingsPort drawingsPort_{documents_, *os_.platform().os.files};
    Editor editor_;
    SearchPath searchPath_;
    TextUserInterface userInterface_{terminal()};
    FrontEnd frontEnd_{};
    LispHost lispHost_;
    ryv::CString templateFolder_;
    std::map<ryv::CString, ryv::CString> environment_;
    LispAtWork lispAtWork_;
    // Ends first: modules use all of the others.
    Modules modules_{os_.platform(), documents_, lispPort_, commandLine_.stack()};
    std::function<void()> whenReady_;
    bool isBehindEcho_ = false; // on its line
    int questions_ = 0;         // that the person is to answer now
    std::atomic<bool> hasQuit_ = false;
};

} // namespace drafta
