#include "embedded/documents/command_line.h"

#include "base/format.h"
#include "base/text.h"
#include "tests/support/text.h"

#include <functional>
#include <gtest/gtest.h>
#include <map>

namespace drafta {
namespace {

using ryv::CString;
using ryv::CStringView;
using ryv::DocumentId;

/// Two documents and a log of all that happens.
class Site final : public CommandLineSite {
public:
    DocumentId current = DocumentId(1);
    std::vector<std::string> log;
    std::map<CString, CString> scripts;
    std::vector<CString> person; ///< what the person types, from the front
    std::function<std::optional<CString>(CStringView)> lisp;
    int busy = 0;
    std::function<void()> onSettle;

    DocumentId currentDocument() override { return current; }
    void activate(DocumentId document) override {
        current = document;
        note(u"activate " + ryv::toText(static_cast<int>(document)));
    }
    void beginBusy(DocumentId) override { ++busy; }
    void endBusy(DocumentId) override { --busy; }
    void lockModeChanged(DocumentId, CStringView command) override { note(u"lock " + CString(command)); }
    void settle() override {
        if (onSettle)
            std::exchange(onSettle, nullptr)();
    }
    std::function<void()> onMessages;
    void handleMessages() override {
        if (onMessages)
            std::exchange(onMessages, nullptr)();
    }
    bool evaluate(CStringView expression, ValueForm form, CString& value) override {
        note(u"eval " + CString(expression));
        value = form == ValueForm::none ? CString() : lisp ? lisp(expression).value_or(CString()) : u"nil";
        return form != ValueForm::answer || value != u"nil";
    }
    CString shownPath(CStringView path) override { return CString(path); }
    bool callLispCommand(CStringView name) override {
        if (name != u"lispy")
            return false;
        note(u"c:lispy");
        return true;
    }
    void print(CStringView text) override { note(u"> " + CString(ryv::trim(text))); }
    void echo(CStringView text) override { print(text); }
    std::optional<CString> askPerson(CStringView) override {
        if (person.empty())
            return std::nullopt;
        const CString line = person.front();
        person.erase(person.begin());
        return line;
    }
    bool readScript(CStringView path, CString& text) override {
        const auto hit = scripts.find(CString(path));
        if (hit != scripts.end())
            text = hit->second;
        return hit != scripts.end();
    }

    void note(CStringView text) { log.push_back(ryv::toUtf8(text)); }
};

class CommandLineTest : public ::testing::Test {
protected:
    using Log = std::vector<std::string>;
    Site site;
    CommandLine line{site};

    void SetUp() override {
        command(u"plain", 0, [] {});
        command(u"ask", 0, [this] { site.note(u"got " + line.ask(u"what? ")); });
        command(u"clear", ryv::CommandFlags::transparent,
            [this] { site.note(u"clear inside " + ryv::toText(site.busy)); });
        command(u"outside", ryv::CommandFlags::applicationContext,
            [this] { site.note(u"busy " + ryv::toText(site.busy)); });
        command(u"now", 0, [this] { line.runScript(line.ask(u"script: ")); });
        command(u"later", 0, [this] { line.queueScript(line.ask(u"script: ")); });
    }
    void command(CStringView name, std::uint32_t flags, std::function<void()> handler) {
        EXPECT_TRUE(line.stack().add(
            {u"TEST", u"_" + CString(name), CString(name), flags, [this, name = CString(name), handler] {
                 site.note(u"run " + name);
                 handler();
             }}));
    }
    /// The log without what notices of the lock mode add to it.
    Log logOf(CStringView text, bool echo = false) {
        line.send(DocumentId(1), text, {true, false, echo});
        line.runUntilIdle();
        Log log = std::exchange(site.log, {});
        std::erase_if(log, [](const std::string& entry) { return entry.starts_with("lock "); });
        return log;
    }
};

TEST_F(CommandLineTest, names_areFoundWithMarksAndThroughLisp) {
    EXPECT_EQ(
        logOf(u"_.PLAIN '_plain plain lispy\r"), (Log{"run plain", "run plain", "run plain", "c:lispy"}));
    EXPECT_EQ(logOf(u"nothing\r"), (Log{"> Unknown command \"nothing\"."}));
    line.stack().add({u"OTHER", u"OTHERNAME", u"autre", 0, [this] { site.note(u"run other"); }});
    EXPECT_EQ(logOf(u"autre _othername\r"), (Log{"run other", "run other"}));
    EXPECT_EQ(logOf(u"_autre\r"), (Log{"> Unknown command \"autre\"."}));
    EXPECT_TRUE(line.stack().removeGroup(u"other"));
    EXPECT_FALSE(line.stack().removeGroup(u"other"));
    EXPECT_EQ(logOf(u"autre\r"), (Log{"> Unknown command \"autre\"."}));
}

TEST_F(CommandLineTest, input_isShownAsAsked) {
    EXPECT_EQ(logOf(u"plain\r(x)\r", true),
        (Log{"> Command: plain", "run plain", "> Command: (x)", "eval (x)", "> nil"}));
    EXPECT_EQ(logOf(u"(x)\r"), (Log{"eval (x)"}));
    line.type(u"(x)");
    line.runUntilIdle();
    EXPECT_EQ(site.log, (Log{"eval (x)", "> nil"}));
}

TEST_F(CommandLineTest, questions_areAnsweredFromWordsScriptQueueOrPerson) {
    EXPECT_TRUE(line.runCommand({u"ask", u"of words"}));
    EXPECT_EQ(std::exchange(site.log, {}), (Log{"lock _ask", "run ask", "got of words", "lock _ask"}));
    EXPECT_EQ(logOf(u"ask of the queue\rplain\r"), (Log{"run ask", "got of the queue", "run plain"}));
    site.scripts[u"s"] = u"ask\nof the script\nplain\n";
    EXPECT_EQ(logOf(u"now s\r"), (Log{"run now", "> Command: ask", "run ask", "> what? of the script",
                                     "got of the script", "> Command: plain", "run plain"}));
    site.person = {u"of the person"};
    EXPECT_EQ(logOf(u"ask\r"), (Log{"run ask", "got of the person"}));
    site.lisp = [](CStringView) { return u"of LISP"; };
    EXPECT_EQ(logOf(u"ask (x)\r"), (Log{"run ask", "eval (x)", "got of LISP"}));
    EXPECT_EQ(logOf(u"ask\r"), (Log{"run ask", "> *Cancel*"}));
}

TEST_F(CommandLineTest, wordsOfACommand_areNotTakenFromWhatIsQueued) {
    line.send(DocumentId(1), u"plain\r", {});
    EXPECT_FALSE(line.runCommand({u"ask"}));
    EXPECT_EQ(std::exchange(site.log, {}), (Log{"lock _ask", "run ask", "> *Cancel*", "lock _ask"}));
    line.runUntilIdle();
    EXPECT_EQ(site.log[1], "run plain");
}

TEST_F(CommandLineTest, insideAQuestion_onlyTransparentCommandsStart) {
    EXPECT_EQ(logOf(u"ask 'clear\r'plain\rx\r"),
        (Log{"run ask", "run clear", "clear inside 2", "> plain cannot be started inside another command.",
            "got x"}));
    command(u"through", ryv::CommandFlags::transparent, [this] {
        EXPECT_FALSE(line.runCommand({u"plain"}));
        EXPECT_TRUE(line.runCommand({u"clear"}));
    });
    EXPECT_EQ(logOf(u"ask 'through\rx\r")[2], "> plain cannot be started inside another command.");
}

TEST_F(CommandLineTest, documentsAreBusyAndLocked_exceptInTheApplicationContext) {
    line.send(DocumentId(1), u"clear outside\r", {});
    line.runUntilIdle();
    EXPECT_EQ(site.log,
        (Log{"lock _clear", "run clear", "clear inside 1", "lock _clear", "run outside", "busy 0"}));
    EXPECT_EQ(site.busy, 0);
}

TEST_F(CommandLineTest, scripts_runAtOnceOrBehindTheirCommand) {
    site.scripts[u"s"] = u"; a comment\nclear\n";
    command(u"both", 0, [this] {
        line.runCommand({u"later", u"s"});
        line.runCommand({u"now", u"s"});
        site.note(u"end of both");
    });
    const Log run = logOf(u"both\r");
    const auto place = [&](const std::string& entry, std::size_t from = 0) {
        return std::find(run.begin() + static_cast<std::ptrdiff_t>(from), run.end(), entry) - run.begin();
    };
    EXPECT_LT(place("run clear"), place("end of both"));
    EXPECT_EQ(run.back(), "clear inside 1");
    EXPECT_EQ(std::count(run.begin(), run.end(), "run clear"), 2);
}

TEST_F(CommandLineTest, script_stopsWhereItFailsAndNamesTheLine) {
    site.scripts[u"s"] = u"plain\n\nnothing\nplain\n";
    const Log run = logOf(u"now s\rclear\r");
    EXPECT_EQ(std::count(run.begin(), run.end(), "run plain"), 1);
    EXPECT_EQ(std::count(run.begin(), run.end(), "> s:3: the script stops here"), 1);
    EXPECT_EQ(run.back(), "clear inside 1");
    site.scripts[u"s"] = u"(unclosed\n";
    EXPECT_EQ(logOf(u"now s\r").back(), "> s: the last expression is not closed");
}

TEST_F(CommandLineTest, strings_areRunInTheirDocument) {
    line.send(DocumentId(2), u"plain\r", {false, false, false});
    line.runUntilIdle();
    EXPECT_TRUE(site.log.empty()) << "an inactive document waits";
    EXPECT_TRUE(line.isWaiting(DocumentId(2)));
    line.send(DocumentId(2), u"half", {true, false, false});
    line.send(DocumentId(1), u"clear\r", {true, false, false});
    line.runUntilIdle();
    EXPECT_EQ(site.current, DocumentId(1));
    line.send(DocumentId(2), u"\r", {true, true, false});
    line.runUntilIdle();
    EXPECT_FALSE(line.isWaiting(DocumentId(2))) << "what an inactive document had begun was wrapped up";
}

TEST_F(CommandLineTest, workAndWhatSettlingQueues_runBeforeIdleIsReached) {
    site.onSettle = [this] { line.sendWork([this] { line.send(DocumentId(1), u"plain\r", {}); }); };
    line.sendWork([this] { site.note(u"work"); });
    EXPECT_EQ(logOf(u"clear\r"), (Log{"work", "run clear", "clear inside 1", "run plain"}));
    bool ran = false;
    site.onMessages = [this] { line.send(DocumentId(1), u"plain\r", {}); };
    EXPECT_EQ(logOf(u"clear\r"), (Log{"run clear", "clear inside 1", "run plain"}));
    site.onMessages = [] { throw 5; };
    EXPECT_EQ(logOf(u"plain\r"), (Log{"run plain", "> failed"}));
    command(u"nested", 0, [&] {
        line.sendWork([&] { ran = true; });
        line.runUntilIdle();
        EXPECT_FALSE(ran) << "nothing runs inside a command";
    });
    logOf(u"nested\r");
    EXPECT_TRUE(ran);
}

TEST_F(CommandLineTest, interrupt_cancelsWhatRunsAndWhatWaits) {
    command(u"long", 0, [this] {
        line.interrupt();
        line.ask(u"? ");
    });
    EXPECT_EQ(logOf(u"long plain plain\r"), (Log{"run long", "> *Cancel*"}));
    EXPECT_EQ(logOf(u"plain\r"), (Log{"run plain"}));
}

TEST_F(CommandLineTest, commandsThatRunEachOther_areStopped) {
    command(u"again", 0, [this] { line.runCommand({u"again"}); });
    const Log run = logOf(u"again\r");
    EXPECT_EQ(run.back(), "> again: too many commands are running inside each other.");
    site.scripts[u"s"] = u"now s\n";
    EXPECT_EQ(logOf(u"now s\r").front(), "run now");
}

} // namespace
} // namespace drafta
