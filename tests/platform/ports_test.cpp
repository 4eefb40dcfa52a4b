// The ports' plain values, the null objects, and the scripted surroundings that other tests lean on.
#include "tests/support/scripted_platform.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <chrono>

namespace ryv::test {
namespace {

using namespace std::chrono_literals;

TEST(WorkspaceNode, attributesOfEachType_areReadBackUnderAnyCaseAndInNoOtherType) {
    WorkspaceNode node(u"root");
    node.setInteger(u"btnSelIndex", 2);
    node.setReal(u"ratio", 0.25);
    node.setString(u"paletteName", u"Projects");
    std::int32_t integer = -1;
    double real = -1;
    CString text = u"before";
    EXPECT_TRUE(node.integer(u"BTNSELINDEX", integer));
    EXPECT_EQ(integer, 2);
    EXPECT_TRUE(node.real(u"RATIO", real));
    EXPECT_EQ(real, 0.25);
    EXPECT_FALSE(node.string(u"ratio", text));
    EXPECT_FALSE(node.integer(u"missing", integer));
    EXPECT_EQ(text, u"before");
    EXPECT_EQ(integer, 2);

    node.setString(u"RATIO", u"half");
    EXPECT_FALSE(node.real(u"ratio", real));
    EXPECT_TRUE(node.string(u"ratio", text));
    EXPECT_EQ(text, u"half");
    ASSERT_EQ(node.attributes().size(), 3u);
    EXPECT_EQ(node.attributes()[1].name, u"ratio");
}

TEST(WorkspaceNode, childrenOfOneName_areKeptInOrderAndTheFirstIsFound) {
    WorkspaceNode node(u"root");
    WorkspaceNode& first = node.addChild(u"PRM_PALETTE");
    node.addChild(u"prm_palette");
    EXPECT_EQ(node.findChild(u"Prm_Palette"), &first);
    EXPECT_EQ(node.findChild(u"PRM"), nullptr);
    ASSERT_EQ(node.children().size(), 2u);
    EXPECT_EQ(node.children()[1]->name(), u"prm_palette");
}

TEST(WorkspaceNode, treeOfAMillionLevels_endsWithoutRecursion) {
    WorkspaceNode node(u"root");
    WorkspaceNode* last = &node;
    for (int i = 0; i < 1'000'000; ++i)
        last = &last->addChild(u"n");
    last->setInteger(u"i", 1);
    EXPECT_EQ(node.children().size(), 1u);
}

TEST(Platform, leftAlone_answersNoToEverything) {
    Platform ports;
    std::uint32_t integer = 7;
    SystemVariable variable = 7;
    CString path = u"before";
    CStringList locked{u"before"};
    ScreenRectangle area{1, 2, 3, 4};
    TaskDialogRequest dialog;
    EXPECT_FALSE(ports.host.editor->systemVariable(u"X", variable));
    EXPECT_EQ(variable, SystemVariable(7));
    EXPECT_EQ(ports.host.profile->profileKey(), u"");
    EXPECT_FALSE(ports.host.mainWindow->documentArea(area));
    EXPECT_EQ(area, (ScreenRectangle{1, 2, 3, 4}));
    EXPECT_EQ(ports.os.registry->readInteger(u"K", u"N", integer), RegistryStatus::missing);
    EXPECT_NE(ports.os.registry->createKey(u"K"), RegistryStatus::ok);
    EXPECT_EQ(integer, 7u);
    EXPECT_FALSE(ports.os.messages->setTimer(WindowHandle{1}, 1, 1ms));
    EXPECT_FALSE(ports.os.monitor->watch(u"C:\\a").ok());
    EXPECT_EQ(ports.os.environment->variable(u"HOME"), u"");
    EXPECT_EQ(ports.os.uniqueIds->newGuid(), u"");
    EXPECT_FALSE(ports.services.projectDatabase->PmGetProjectDb(u"C:\\a.kqp", path));
    EXPECT_FALSE(ports.services.lockCheck->LispCheckFileLockStatusAndLock({u"C:\\a"}, 1, 0, locked));
    EXPECT_EQ(locked, CStringList{u"before"});
    EXPECT_FALSE(ports.services.taskDialogs->load(u"X", {}, dialog));
    EXPECT_EQ(ports.services.catalogBrowser->load(u"M"), nullptr);
    EXPECT_FALSE(ports.services.clientManager->isAvailable());
    EXPECT_FALSE(ports.services.waitCursor->RyvBeginWaitCursor());
}

/// Writes down what a window is told, and when.
struct Window final : MessageReceiver {
    explicit Window(ScriptedPlatform& platform) : surroundings(platform) {}
    std::intptr_t onMessage(std::uint32_t number, std::uintptr_t first, std::intptr_t) override {
        log.push_back(u"m" + toText(number) + u"/" + toText(static_cast<long long>(first)));
        return 0;
    }
    void onTimer(std::uint32_t id) override {
        log.push_back(u"t" + toText(id) + u"@" + toText(surroundings.clock.now.count()));
        whenTimer(id);
    }
    ScriptedPlatform& surroundings;
    CStringArray log;
    std::function<void(std::uint32_t)> whenTimer = [](std::uint32_t) {};
};

class Loop : public ::testing::Test {
protected:
    ScriptedPlatform surroundings;
    ScriptedMessageLoop& loop = surroundings.messages;
    Window window{surroundings};
    WindowHandle handle = loop.createWindow(window);
};

TEST_F(Loop, timers_expireInOrderRepeatAndStartAgain) {
    loop.setTimer(handle, 1, 100ms);
    loop.setTimer(handle, 2, 60ms);
    loop.advance(50ms);
    loop.setTimer(handle, 1, 100ms);
    loop.advance(149ms);
    loop.killTimer(handle, 2);
    loop.advance(60ms);
    EXPECT_EQ(window.log, (CStringArray{u"t2@60", u"t2@120", u"t1@150", u"t2@180", u"t1@250"}));
}

TEST_F(Loop, messagePostedByATimer_comesBeforeTheNextTimer) {
    window.whenTimer = [this](std::uint32_t id) {
        loop.killTimer(handle, id);
        loop.post(handle, 2987, id, 0);
    };
    loop.setTimer(handle, 1, 10ms);
    loop.setTimer(handle, 2, 10ms);
    loop.advance(10ms);
    EXPECT_EQ(window.log, (CStringArray{u"t1@10", u"m2987/1", u"t2@10", u"m2987/2"}));
}

TEST_F(Loop, windowDestroyed_dropsItsMessagesAndTimersAndIsNeverGivenAgain) {
    loop.setTimer(handle, 1, 10ms);
    EXPECT_TRUE(loop.post(handle, 1, 0, 0));
    loop.destroyWindow(handle);
    EXPECT_FALSE(loop.post(handle, 2, 0, 0));
    EXPECT_FALSE(loop.setTimer(handle, 2, 10ms));
    EXPECT_NE(loop.createWindow(window), handle);
    loop.advance(100ms);
    EXPECT_TRUE(window.log.empty());
}

struct DocumentLog final : DocumentObserver, InputContextObserver {
    explicit DocumentLog(CStringArray& texts) : log(texts) {}
    void documentCreated(DocumentId) override { log.push_back(u"created"); }
    void documentToBeDestroyed(DocumentId) override { log.push_back(u"ending"); }
    void documentDestroyed(DocumentId) override { log.push_back(u"destroyed"); }
    void documentActivated(DocumentId id) override { log.push_back(u"active " + toText(int(id))); }
    void beginQuiescentState(DocumentId) override { log.push_back(u"idle"); }
    void endQuiescentState(DocumentId) override { log.push_back(u"busy"); }
    CStringArray& log;
};

TEST(ScriptedDocuments, lifeOfTwoDocuments_isToldInOrder) {
    ScriptedDocuments documents;
    CStringArray log;
    DocumentLog observer(log);
    documents.add(observer);
    const DocumentId a = documents.openDocument(u"C:\\a.dwg");
    documents.attach(a, observer);
    documents.attach(a, observer);
    documents.setQuiescent(a, false);
    documents.setQuiescent(a, false);
    EXPECT_FALSE(documents.isQuiescent(a));
    const DocumentId b = documents.openDocument(u"C:\\b.dwg", false);
    EXPECT_FALSE(documents.isNamed(b));
    documents.closeDocument(b);
    documents.setQuiescent(a, true);
    documents.closeDocument(a);
    documents.setQuiescent(a, false);
    EXPECT_FALSE(documents.hasCurrentDocument());
    EXPECT_EQ(log, (CStringArray{u"created", u"active 1", u"busy", u"created", u"active 2", u"ending",
                       u"destroyed", u"active 1", u"idle", u"ending", u"destroyed", u"active 0"}));
}

TEST(ScriptedDocuments, openWithoutADocument_hasOneThatTakesStrings) {
    ScriptedDocuments documents;
    documents.sendStringToExecute(documents.currentDocument(), u"lost\r", {});
    documents.open = true;
    documents.executeInApplicationContext([&] {
        documents.sendStringToExecute(documents.currentDocument(), u"(a)\r", {true, false, true});
        documents.executeInApplicationContext([&] { documents.open = false; });
    });
    EXPECT_TRUE(documents.sent.empty());
    EXPECT_EQ(documents.runApplicationContext(), 2u);
    EXPECT_EQ(documents.sentTexts(), CStringArray{u"(a)\r"});
    EXPECT_TRUE(documents.sent[0].options.echo);
    EXPECT_EQ(documents.currentDocument(), DocumentId::none);
}

TEST(ScriptedUserInterface, answers_goToTheirQuestionsAndRunOut) {
    ScriptedUserInterface ui;
    ui.answerMessage(173, Answer::yes);
    ui.answerTask(u"RyvPageMan.FlattenStructure", 1001);
    ui.answerFiles(138, {u"C:\\a.dwg"});
    ui.answerForm(u"form", {{u"a", {u"new"}}});
    ui.answerMessage(999, Answer::ok);
    const MessageBoxRequest question{173, {}, {}, MessageIcon::warning, MessageButtons::yesNo};
    EXPECT_EQ(ui.messageBox(question), Answer::yes);
    EXPECT_EQ(ui.messageBox(question), Answer::no);
    TaskDialogRequest task;
    task.id = u"RyvPageMan.FlattenStructure";
    EXPECT_EQ(ui.taskDialog(task), 1001);
    FileRequest file;
    file.title = 138;
    EXPECT_EQ(ui.chooseFiles(file), std::vector<CString>{u"C:\\a.dwg"});
    FormRequest form{u"form", {},
        {{FormField::Kind::text, u"a", {}, {}, {u"old"}}, {FormField::Kind::text, u"b", {}, {}, {u"kept"}}},
        {}, {}};
    EXPECT_TRUE(ui.fillForm(form));
    EXPECT_EQ(form.fields[0].values, CStringArray{u"new"});
    EXPECT_EQ(form.fields[1].values, CStringArray{u"kept"});
    EXPECT_FALSE(ui.fillForm(form));
    EXPECT_EQ(ui.unusedAnswers(), 1u);
    EXPECT_EQ(ui.asked.size(), 6u);
    ui.cancelAtStep = 2;
    const auto progress = ui.beginProgress(12, 3);
    EXPECT_TRUE(progress->step(0, u"one"));
    EXPECT_FALSE(progress->step(1, u"two"));
}

TEST(ScriptedRegistry, keysAndValues_areTypedAndFoundInAnyCase) {
    ScriptedRegistry registry;
    CString text = u"before";
    std::uint32_t number = 0;
    EXPECT_EQ(registry.writeString(u"A\\B", u"x", u"1"), RegistryStatus::missing);
    EXPECT_EQ(registry.createKey(u"A\\B"), RegistryStatus::ok);
    EXPECT_EQ(registry.findKey(u"a"), RegistryStatus::ok);
    EXPECT_EQ(registry.writeInteger(u"a\\b", u"X", 5), RegistryStatus::ok);
    EXPECT_EQ(registry.readString(u"A\\B", u"x", text), RegistryStatus::wrongType);
    EXPECT_EQ(text, u"before");
    EXPECT_EQ(registry.readInteger(u"A\\B", u"x", number), RegistryStatus::ok);
    EXPECT_EQ(number, 5u);
    EXPECT_EQ(registry.readInteger(u"A\\B", u"y", number), RegistryStatus::missing);
    registry.deny(u"A\\B");
    EXPECT_EQ(registry.writeInteger(u"A\\B", u"x", 6), RegistryStatus::denied);
    EXPECT_EQ(registry.createKey(u"A\\B"), RegistryStatus::denied);
}

struct Notices final : FileMonitorReceiver {
    void fileChanged(CStringView path, FileChange change) override {
        log.push_back(CString(path) + u" " + toText(int(change)));
    }
    void fileRenamed(CStringView from, CStringView to) override {
        log.push_back(CString(from) + u">" + CString(to));
    }
    CStringArray log;
};

TEST(ScriptedFileMonitor, notices_comeOfWatchedFilesWhileItRuns) {
    ScriptedFileMonitor monitor;
    Notices notices;
    EXPECT_TRUE(monitor.watch(u"C:\\A").ok());
    EXPECT_FALSE(monitor.notify(u"C:\\A", FileChange::created));
    EXPECT_TRUE(monitor.start(notices).ok());
    EXPECT_EQ(monitor.start(notices).error, FileError::busy);
    EXPECT_TRUE(monitor.notify(u"c:\\a", FileChange::madeReadOnly));
    EXPECT_FALSE(monitor.notify(u"C:\\B", FileChange::created));
    EXPECT_TRUE(monitor.notifyRename(u"C:\\T", u"C:\\A"));
    EXPECT_TRUE(monitor.unwatch(u"c:\\A"));
    EXPECT_FALSE(monitor.unwatch(u"c:\\A"));
    EXPECT_EQ(notices.log, (CStringArray{u"C:\\A 4", u"C:\\T>C:\\A"}));
}

TEST(ScriptedLisp, functionsOfTheModule_nestAndKeepTheirArguments) {
    ScriptedLisp lisp;
    lisp.defineFunction(u"inner", 2);
    lisp.defineFunction(u"outer", 1);
    EXPECT_EQ(lisp.call(u"inner").status, 0);
    lisp.registerHandler(2, [&] {
        lisp.returnInt(40'000);
        return 3;
    });
    lisp.registerHandler(1, [&] {
        lisp.returnT();
        EXPECT_EQ(lisp.call(u"inner").value.at(0).type, ResultType::longInteger);
        lisp.returnString(*lisp.getArgs().stringAt(0));
        return 1;
    });
    const LispReply reply = lisp.call(u"outer", HostResultBuffer().addString(u"x"));
    EXPECT_EQ(reply.status, 1);
    EXPECT_EQ(*reply.value.stringAt(0), u"x");
}

struct Palette final : PaletteSetClient {
    bool saveLayout(WorkspaceNode&) override { return true; }
    bool loadLayout(const WorkspaceNode&) override { return true; }
    std::intptr_t onMessage(std::uint32_t, std::uintptr_t, std::intptr_t) override { return ++messages; }
    void onTimer(std::uint32_t) override {}
    int messages = 0;
};

TEST(ScriptedPalettes, paletteSet_hasAWindowForAsLongAsItLives) {
    ScriptedPlatform surroundings;
    Palette client;
    auto set = surroundings.palettes.newPaletteSet(client);
    set->show(true);
    EXPECT_FALSE(set->isVisible());
    ASSERT_TRUE(set->createWindow({}));
    EXPECT_FALSE(set->createWindow({}));
    const WindowHandle window = set->window();
    surroundings.messages.post(window, 2987, 0, 0);
    surroundings.messages.pump();
    EXPECT_EQ(client.messages, 1);
    HostPalette& palette = set->addPalette(u"Projects");
    palette.setTopToWholeRatio(1.5);
    EXPECT_EQ(palette.topToWholeRatio(), 1);
    EXPECT_TRUE(set->removePalette(palette));
    set.reset();
    EXPECT_FALSE(surroundings.messages.isWindow(window));
    EXPECT_EQ(surroundings.palettes.set, nullptr);
}

TEST(ScriptedServices, lockCheck_takesAllOrNothing) {
    ScriptedLockCheck check;
    CStringList locked;
    check.heldByOthers = {u"C:\\B"};
    EXPECT_FALSE(check.LispCheckFileLockStatusAndLock({u"C:\\a", u"c:\\b"}, 1, 0, locked));
    EXPECT_TRUE(locked.empty() && check.locked.empty());
    EXPECT_TRUE(check.LispCheckFileLockStatusAndLock({u"C:\\a"}, 1, 0, locked));
    EXPECT_TRUE(check.LispCheckFileLockStatusAndLock({u"C:\\A", u"C:\\c"}, 1, 0, locked));
    EXPECT_EQ(locked, (CStringList{u"C:\\a", u"C:\\c"}));
    check.LispUpdUnlockFiles({u"C:\\A"});
    EXPECT_EQ(check.locked, CStringList{u"C:\\c"});
}

} // namespace
} // namespace ryv::test
