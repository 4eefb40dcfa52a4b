// The host as a whole.
#include "tests/embedded/documents/host_fixture.h"

#include "base/fold.h"
#include "base/text.h"
#include "tests/support/temp_folder.h"
#include "tests/support/text.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <poll.h>

namespace drafta {
namespace {

using ryv::CString;
using ryv::CStringView;
using ryv::DocumentId;
using ryv::test::TempFolder;

const std::string documents = RYV_TEST_DATA "/../../../docs/";

class HostTest : public HostFixture {};

struct Example {
    std::string form;
    std::string value;
};

/// The lines "form => value" of the LISP blocks of a page.
std::vector<Example> examplesOf(const std::string& page) {
    std::vector<Example> examples;
    bool inside = false;
    std::istringstream lines(ryv::test::readBytes(page));
    for (std::string text; std::getline(lines, text);) {
        if (text.starts_with("```"))
            inside = text == "```lisp";
        else if (const std::size_t arrow = text.find("=>"); inside && arrow != std::string::npos)
            examples.push_back({text.substr(0, arrow), text.substr(text.find_first_not_of(' ', arrow + 2))});
    }
    return examples;
}

TEST_F(HostTest, pageOfTheHostFunctions_isTrueAndComplete) {
    const std::vector<Example> examples = examplesOf(documents + "lisp-host.md");
    ASSERT_GT(examples.size(), 20u);
    for (const Example& example : examples)
        EXPECT_EQ(line(example.form), example.value) << example.form;

    const std::string page = ryv::test::readBytes(documents + "lisp-host.md");
    lisp::NullServices services;
    const lisp::Interpreter plain(services);
    for (const CString& name : host.documents().current()->lisp->interpreter().functions()) {
        if (!plain.isFunction(name)) {
            EXPECT_NE(page.find("`(" + ryv::toAscii(ryv::toLower(name))), std::string::npos)
                << ryv::toAscii(name);
        }
    }
}

TEST_F(HostTest, documents_openOnceWhateverTheirSpelling) {
    const std::string path = copyOf("01 Cover Sheet.dwg", "Cover.dwg");
    line("open " + path);
    const DocumentId opened = host.documents().currentDocument();
    EXPECT_NE(opened, DocumentId(1));
    line("(doc-activate 1)");
    line("open " + folder.native() + "/./COVER.DWG");
    EXPECT_EQ(host.documents().currentDocument(), opened);
    EXPECT_EQ(host.documents().documents().size(), 2u);
    EXPECT_EQ(line("open " + folder.native("none.dwg")).find(folder.native("none.dwg") + ": "), 0u)
        << printed;
}

TEST_F(HostTest, openDrawing_isReachedThroughItsDocument) {
    const std::string path = copyOf("01 Cover Sheet.dwg", "a.dwg");
    line("open " + path);
    EXPECT_EQ(line("(setq own (dwg-current)) (dwg-first own \"TITLE_A\") (dwg-set own \"REV\" \"own\")"),
        "<DRAWING: 1>\nT\nT");
    ryv::DrawingResult result;
    const auto other = host.platform().host.drawings->open(module("a.dwg"), result);
    ASSERT_TRUE(other && other->firstReference(u"TITLE_A"));
    EXPECT_TRUE(other->writeAttribute(u"DRAWN", u"other"));
    EXPECT_TRUE(other->save().ok());
    EXPECT_EQ(line("(dwg-get own \"DRAWN\")"), "\"other\"") << "one drawing, two views";
    line("(dwg-set own \"CHECKED\" \"again\")");
    line("qsave");
    const std::string saved = ryv::test::readBytes(path);
    for (const char* const text : {"\r\nown\r\n", "\r\nother\r\n", "\r\nagain\r\n"})
        EXPECT_NE(saved.find(text), std::string::npos) << text;
    const auto id = host.documents().currentDocument();
    line("(doc-activate 1)");
    EXPECT_TRUE(host.documents().close(id));
    EXPECT_FALSE(other->hasAttribute(u"REV")) << "the document is gone";
    EXPECT_FALSE(other->save().ok());
}

TEST_F(HostTest, observers_hearTheLifeOfADocumentInOrder) {
    class Observer final : public ryv::DocumentObserver, public ryv::InputContextObserver {
    public:
        std::vector<std::string> log;
        Host* host = nullptr;
        void note(const char* what, DocumentId id) {
            log.push_back(std::string(what) + " " + std::to_string(static_cast<int>(id)));
        }
        void documentCreated(DocumentId id) override {
            note("created", id);
            host->documents().attach(id, *this);
        }
        void documentToBeDestroyed(DocumentId id) override { note("ending", id); }
        void documentDestroyed(DocumentId id) override { note("destroyed", id); }
        void documentActivated(DocumentId id) override { note("activated", id); }
        void documentLockModeChanged(DocumentId, CStringView command) override {
            log.push_back(ryv::toAscii(command));
        }
        void beginQuiescentState(DocumentId id) override { note("idle", id); }
        void endQuiescentState(DocumentId id) override { note("busy", id); }
    } observer;
    observer.host = &host;
    host.documents().add(observer);
    line("open " + copyOf("01 Cover Sheet.dwg", "a.dwg"));
    line("saveas " + folder.native("b"));
    line("close");
    host.documents().remove(observer);
    host.documents().detach(observer);
    EXPECT_EQ(observer.log, (std::vector<std::string>{"created 2", "activated 2", "idle 2", "busy 2",
                                "SAVEAS", "SAVEAS", "idle 2", "ending 2", "destroyed 2", "activated 1"}));
    EXPECT_TRUE(std::filesystem::exists(folder.native("b.dwg")));
}

TEST_F(HostTest, queuedOpen_runsWhenIdle_asTheModuleSendsIt) {
    const std::string path = copyOf("01 Cover Sheet.dwg", "with blanks.dwg");
    ryv::HostDocuments& port = host.documents();
    port.executeInApplicationContext([&] {
        port.sendStringToExecute(
            port.currentDocument(), u"_.open \"" + module("with blanks.dwg") + u"\"\r", {true, false, true});
        EXPECT_FALSE(port.isQuiescent(port.currentDocument()));
    });
    EXPECT_EQ(port.documents().size(), 1u);
    printed.clear();
    host.commandLine().runUntilIdle();
    EXPECT_EQ(port.documents().size(), 2u);
    EXPECT_EQ(printed, "\nCommand: _.open\nDrawing to open: " + ryv::toUtf8(module("with blanks.dwg")) +
                           "\nOpened " + path + "\n");
    EXPECT_TRUE(port.isQuiescent(port.currentDocument()));
}

TEST_F(HostTest, whatFollowsAnEcho_beginsALine) {
    const struct {
        const char16_t* script;
        const char* expected;
    } cases[] = {{u"(progn (princ \"one\") (princ \"two\") (princ))\r",
                     "\nCommand: (progn (princ \"one\") (princ \"two\") (princ))\nonetwo"},
        {u"(+ 1 2)\r", "\nCommand: (+ 1 2)\n3"},
        {u"silent\rtalks\r", "\nCommand: silent\nCommand: talks\nhello"}};
    line("(progn (defun c:silent () (princ)) (defun c:talks () (princ \"hello\") (princ)))");
    ryv::HostDocuments& port = host.documents();
    for (const auto& each : cases) {
        port.sendStringToExecute(port.currentDocument(), each.script, {true, false, true});
        printed.clear();
        host.commandLine().runUntilIdle();
        EXPECT_EQ(printed, each.expected);
    }
    port.sendStringToExecute(port.currentDocument(), u"silent\r", {true, false, true});
    host.commandLine().runUntilIdle();
    EXPECT_EQ(line("(progn (princ \"typed\") (princ))"), "typed")
        << "what a person types ends its line itself";
}

TEST_F(HostTest, scriptInsideACommand_opensADrawingAndGoesOnInIt) {
    const std::string path = copyOf("01 Cover Sheet.dwg", "new.dwg");
    folder.write("go.scr", "_.open\n\"" + path + "\"\n_continue\n");
    CString continuedIn;
    ryv::HostCommands& commands = *host.platform().host.commands;
    commands.addCommand({u"T", u"_Continue", u"Continue", 0,
        [&] { continuedIn = host.documents().fileName(host.documents().currentDocument()); }});
    commands.addCommand({u"T", u"_Begin", u"Begin", 0, [&] {
                             EXPECT_TRUE(commands.runCommand({u"_.RYV_SCRIPT", module("go.scr")}));
                         }});
    line("begin");
    EXPECT_EQ(continuedIn, module("new.dwg"));
    EXPECT_EQ(host.documents().documents().size(), 2u);
}

TEST_F(HostTest, moduleFunctions_takeArgumentsAndGiveResults) {
    ryv::HostLisp& port = *host.platform().host.lisp;
    EXPECT_EQ(port.defineFunction(u"ryv_try", 5), ryv::LispStatus::success);
    EXPECT_EQ(line("(ryv_try 1)"), "nil") << "no handler yet";
    EXPECT_EQ(port.registerHandler(6, [] { return 1; }), ryv::LispStatus::failure);
    ryv::HostResultBuffer seen;
    EXPECT_EQ(port.registerHandler(5,
                  [&] {
                      seen = port.getArgs();
                      port.returnList(
                          ryv::HostResultBuffer().addString(u"a").addListBegin().addInteger(2).addListEnd());
                      return 1;
                  }),
        ryv::LispStatus::success);
    EXPECT_EQ(line("(ryv_try \"x\" '(1 2) 70000)"), "(\"a\" (2))");
    ASSERT_EQ(seen.size(), 6u);
    EXPECT_EQ(*seen.stringAt(0), u"x");
    EXPECT_EQ(seen.at(1).type, ryv::ResultType::listBegin);
    EXPECT_EQ(seen.at(5).type, ryv::ResultType::longInteger);
    line("new");
    EXPECT_NE(line("(ryv_try)").find("RYV_TRY"), std::string::npos) << "each document has a LISP of its own";

    ryv::HostResultBuffer result;
    const auto call = ryv::HostResultBuffer().addString(u"mine").addString(u"text");
    line("(defun mine (s) (list s '(\"n\") nil))");
    EXPECT_EQ(port.invoke(call, result), ryv::LispStatus::failure) << "not exposed yet";
    line("(expose-function 'mine)");
    EXPECT_EQ(port.invoke(call, result), ryv::LispStatus::success);
    EXPECT_EQ(result.size(), 5u);
    EXPECT_EQ(port.setSymbol(u"GBL_SELECTED_DWGS", ryv::HostResultBuffer().addStrings({u"a", u"b"})),
        ryv::LispStatus::success);
    EXPECT_EQ(line("GBL_SELECTED_DWGS").substr(0, 7), "Unknown");
    EXPECT_EQ(line("(length gbl_selected_dwgs)"), "2");
}

TEST_F(HostTest, projectWrite_keepsAllElseAndRefusesWhatSomebodyElseChanged) {
    folder.write("p.kqp", "*[1]first\r\n+[1]lib\r\n?[3]x\r\n=A\r\na.dwg\r\n");
    const std::string path = "\"" + folder.native("p.kqp") + "\"";
    EXPECT_EQ(line("(project-read " + path + ")"),
        "((\"descriptions\" \"first\") (\"misc\" (1 . \"lib\")) "
        "(\"settings\" (3 . \"x\")) (\"lines\" \"=A\" \"a.dwg\"))");
    EXPECT_EQ(line("(project-write " + path + " '(\"lines\" \"b\\n.dwg\"))"), "T");
    EXPECT_EQ(folder.read("p.kqp"), "*[1]first\n+[1]lib\n?[3]x\nb .dwg\n");
    folder.write("p.kqp", "*[1]theirs\n");
    EXPECT_NE(line("(project-write " + path + " '(\"lines\"))").find("somebody else changed it"),
        std::string::npos);
    EXPECT_EQ(folder.read("p.kqp"), "*[1]theirs\n");
    line("(project-read " + path + ")");
    folder.write("p.kqp", "*[1]theirs again\n");
    EXPECT_NE(
        line("(project-write " + path + " '(\"lines\" 5))").find("bad argument type"), std::string::npos);
    EXPECT_NE(line("(project-write " + path + " '(\"lines\"))").find("somebody else"), std::string::npos)
        << "a refused call forgets nothing";
    EXPECT_NE(line("(project-read \"/nowhere/p.kqp\")").find("/nowhere/p.kqp: "), std::string::npos);
}

TEST_F(HostTest, faults_endWhatFailedAndNotTheHost) {
    line("(setq x nil)");
    line("(progn (repeat 300000 (setq x (list x))) 1)");
    EXPECT_NE(line("(progn x)").find("nested too deeply"), std::string::npos) << printed.substr(0, 200);
    host.platform().host.commands->addCommand(
        {u"T", u"BAD", u"BAD", 0, [] { throw std::invalid_argument("index outside the array"); }});
    EXPECT_EQ(line("bad"), "failed: index outside the array\n");
    EXPECT_EQ(line("(command \"BAD\")"), "failed: index outside the array\n\nnil");
    host.documents().executeInApplicationContext([] { throw 5; });
    EXPECT_EQ(line("(+ 1 2)"), "failed\n\n3");
    host.platform().host.lisp->defineFunction(u"ryv_bad", 1);
    host.platform().host.lisp->registerHandler(1, []() -> int { throw 5; });
    EXPECT_NE(line("(ryv_bad)").find("a function of the host failed"), std::string::npos);
}

TEST_F(HostTest, answers_areTextAndNoCodeWhenTheyAreQuotedOrHandedOver) {
    const std::string path = copyOf("01 Cover Sheet.dwg", "(1) a.dwg");
    EXPECT_EQ(line("open \"" + path + "\""), "Opened " + path + "\n");
    line("(command \"SETVAR\" \"USERS1\" \"'two\nlines\")");
    EXPECT_EQ(line("(getvar \"USERS1\")"), "\"'two\\nlines\"");
    line("setvar\nusers1\n(strcat \"a\\\\b\" \"\\\"\")");
    EXPECT_EQ(line("(strlen (getvar \"USERS1\"))"), "4") << "the string itself, not as it is printed";
    EXPECT_EQ(line("saveas\n(car nil)"), "*Cancel*\n");
}

TEST_F(HostTest, saveAs_replacesNothingUnasked) {
    const std::string own = copyOf("01 Cover Sheet.dwg", "own.dwg");
    folder.write("other.dwg", "theirs");
    line("open " + own);
    line("saveas " + folder.native("other.dwg"));
    EXPECT_EQ(folder.read("other.dwg"), "theirs");
    line("(setq h (dwg-current)) (dwg-first h \"TITLE_A\") (dwg-set h \"REV\" \"X\")");
    folder.write("own.dwg", "changed outside");
    EXPECT_NE(line("saveas " + own).find("changed outside"), std::string::npos);
    EXPECT_EQ(folder.read("own.dwg"), "changed outside");
}

TEST_F(HostTest, renameFile_theDocumentGoesOnWithWhatIsNotSaved) {
    const std::string own = copyOf("01 Cover Sheet.dwg", "own.dwg");
    folder.write("other.dwg", "theirs");
    line("open " + own);
    line("(setq h (dwg-current)) (dwg-first h \"TITLE_A\") (dwg-set h \"REV\" \"unsaved\")");
    Documents& open = host.documents();
    const DocumentId id = open.documentOfFile(module("./OWN.dwg"));
    EXPECT_EQ(id, open.currentDocument());
    EXPECT_EQ(open.renameFile(id, module("other.dwg")).error, ryv::FileError::exists);
    EXPECT_EQ(open.fileName(id), module("own.dwg"));
    EXPECT_TRUE(open.renameFile(id, module("NEW.dwg")).ok());
    EXPECT_TRUE(open.renameFile(id, module("new.dwg")).ok()) << "in case only";
    EXPECT_EQ(open.fileName(id), module("new.dwg"));
    EXPECT_EQ(open.documentOfFile(module("own.dwg")), DocumentId::none);
    EXPECT_EQ(ryv::test::readBytes(folder.native("new.dwg")).find("unsaved"), std::string::npos);
    line("qsave");
    EXPECT_NE(ryv::test::readBytes(folder.native("new.dwg")).find("unsaved"), std::string::npos);
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"new.dwg", "other.dwg", "profile"}));
    EXPECT_EQ(folder.read("other.dwg"), "theirs");
    line("new");
    EXPECT_EQ(open.renameFile(open.currentDocument(), module("x.dwg")).error, ryv::FileError::missing)
        << "it has no file";
}

TEST_F(HostTest, settings_lieInTheProfile) {
    const ryv::Platform& ports = host.platform();
    EXPECT_EQ(ports.services.userFolders->GblPm_GetDefaultKqUserValue(), module("profile") + u"\\");
    EXPECT_EQ(ports.services.userFolders->GetUserDirectory(), u"");
    EXPECT_TRUE(ports.services.settings->RyvSetRegSetting(u"Folders", u"UserDirectory", u"C:\\Data"));
    const CString settings = ports.host.profile->profileKey() + u"\\Settings";
    EXPECT_EQ(ports.os.registry->createKey(settings), ryv::RegistryStatus::ok);
    EXPECT_EQ(ports.os.registry->writeInteger(settings, u"Visibility", 1), ryv::RegistryStatus::ok);

    Host next{{folder.native("profile"), product, {}, [this](std::string_view text) { errors += text; },
        nullptr, nullptr, true}};
    std::uint32_t visibility = 0;
    CString value;
    EXPECT_EQ(next.platform().services.userFolders->GetUserDirectory(), u"C:\\Data\\");
    EXPECT_TRUE(next.platform().services.settings->RyvGetRegSetting(u"folders", u"userdirectory", value));
    EXPECT_FALSE(next.platform().services.settings->RyvGetRegSetting(u"", u"UserDirectory", value));
    EXPECT_EQ(value, u"C:\\Data");
    EXPECT_EQ(next.platform().os.registry->readInteger(settings, u"visibility", visibility),
        ryv::RegistryStatus::ok);
    EXPECT_EQ(visibility, 1u);

    ports.services.eventLog->log(u"onProjectOpen", {u"\\silent.kqp"});
    next.platform().services.eventLog->log(u"onProjectOpen", {u"\\a\nb\x1B.kqp", u"Q:\\c.kqp", u"on"});
    EXPECT_EQ(errors, "onProjectOpen\t/a?b?.kqp\tQ:\\c.kqp\ton\n")
        << "only where it was asked for, on one line";
}

TEST_F(HostTest, messages_areHandledBeforeThePersonsTurnAndWhileItLasts) {
    ryv::HostDocuments& port = host.documents();
    const auto later = [&](CStringView text) {
        host.platform().os.messages->call([&port, text] {
            port.sendStringToExecute(port.currentDocument(), text, {true, false, false});
        });
    };
    later(u"(print 'first)\r");
    EXPECT_EQ(line("(princ 1)"), "1\n1\nFIRST ");
    later(u"(print 'second)\r");
    pollfd pending{host.pendingDescriptor(), POLLIN, 0};
    EXPECT_EQ(::poll(&pending, 1, 0), 1);
    printed.clear();
    host.runPending();
    EXPECT_EQ(printed, "\nSECOND ");
    EXPECT_EQ(::poll(&pending, 1, 0), 0);
}

TEST_F(HostTest, changeOfAWatchedFile_isToldWhileThePersonIsWaitedFor) {
    struct Receiver final : ryv::FileMonitorReceiver {
        CString changed;
        void fileChanged(CStringView path, ryv::FileChange) override { changed = path; }
        void fileRenamed(CStringView, CStringView) override {}
    } receiver;
    ryv::FileMonitor& monitor = *host.platform().os.monitor;
    folder.write("p.kqp", "a");
    ASSERT_TRUE(monitor.start(receiver).ok() && monitor.watch(module("p.kqp")).ok());
    line("(princ)");
    folder.write("p.kqp", "ab");
    pollfd pending{host.pendingDescriptor(), POLLIN, 0};
    for (int left = 10; left != 0 && receiver.changed.empty() && ::poll(&pending, 1, 10'000) == 1; --left)
        host.runPending();
    EXPECT_EQ(receiver.changed, module("p.kqp"));
    monitor.stop();
}

TEST_F(HostTest, questionThatStands_letsMessagesInButNoCommands) {
    std::vector<std::string> log;
    std::unique_ptr<Host> asking;
    asking = std::make_unique<Host>(HostOptions{folder.native("profile"), product,
        [&](std::string_view text) { log.emplace_back(text); }, [](std::string_view) {},
        [&](std::string_view) -> std::optional<std::string> {
            asking->platform().os.messages->call([&] { log.emplace_back("message"); });
            asking->documents().executeInApplicationContext([&] { log.emplace_back("work"); });
            asking->runPending();
            log.emplace_back("answer");
            return "yes";
        }});
    asking->newDocument();
    asking->platform().os.messages->call([&] {
        asking->platform().ui->messageBox({1, {}, {}, {}, ryv::MessageButtons::yesNo});
    });
    asking->runPending();
    const auto at = [&](const char* text) { return std::find(log.begin(), log.end(), text) - log.begin(); };
    EXPECT_LT(at("message"), at("answer"));
    EXPECT_LT(at("answer"), at("work"));
    EXPECT_LT(at("work"), std::ssize(log));
}

TEST_F(HostTest, zipWrite_refusesItselfAndNothing) {
    folder.write("a.txt", "a");
    const std::string path = "\"" + folder.native("a.txt") + "\"";
    EXPECT_NE(line("(zip-write " + path + " nil)").find("nothing to put"), std::string::npos);
    EXPECT_NE(line("(zip-write " + path + " (list (cons " + path + " \"a\")))").find("hold itself"),
        std::string::npos);
    EXPECT_EQ(folder.read("a.txt"), "a");
}

TEST_F(HostTest, appendingToAnOldFile_refusesWhatItsEncodingLacks) {
    folder.write("old.txt", "\xC4\n");
    line("(setq f (open \"" + folder.native("old.txt") + "\" \"a\"))");
    EXPECT_EQ(line("(write-line (chr 26085) f)").find("\""), std::string::npos)
        << "an error and no value: " << printed;
    line("(write-line (chr 214) f)");
    line("(close f)");
    EXPECT_EQ(folder.read("old.txt"), "\xC4\n\xD6\n");
}

} // namespace
} // namespace drafta
