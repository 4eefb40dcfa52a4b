// The module from start to end, as far as its parts have to agree on it.
#include "host/client_reactor.h"
#include "host/exported_functions.h"
#include "host/module_entry.h"
#include "tests/host/nav_fixture.h"

namespace ryv::test {
namespace {

using LifeTest = NavFixture;

TEST_F(LifeTest, componentUpdates_areAskedForAtEachCompletionUntilForgotten) {
    start();
    surroundings.documents.openDocument(u"C:\\d.dwg");
    registerOZMCompUpdate();
    surroundings.clientManager.complete();
    EXPECT_FALSE(checkClientQueueStatus());
    EXPECT_TRUE(surroundings.documents.sent.empty());
    surroundings.clientManager.update();
    surroundings.clientManager.complete();
    surroundings.clientManager.complete();
    EXPECT_TRUE(checkClientQueueStatus());
    EXPECT_EQ(surroundings.documents.sentTexts(),
        (CStringArray{u"(RYMtUpdateComponent)\r", u"(RYMtUpdateComponent)\r"}));
    registerOZMCompUpdate();
    EXPECT_FALSE(checkClientQueueStatus());
    surroundings.clientManager.update();
    surroundings.documents.activate(DocumentId::none);
    surroundings.clientManager.complete();
    EXPECT_EQ(surroundings.documents.sent.size(), 2u);
    unregisterOZMCompUpdate();
    EXPECT_EQ(surroundings.clientManager.reactors.count(), 0u);
}

TEST_F(LifeTest, rereadInLisp_thatAsksForAnother_comesToAnEnd) {
    start();
    scriptLisp(true);
    const DocumentId document = openDocument(u"C:\\d.dwg");
    activate(u"a");
    becomeIdle(document);
    const auto rereads = [this] {
        const CStringArray sent = surroundings.documents.sentTexts();
        return std::count(sent.begin(), sent.end(), u"(c:ryv_kqp_reread)\r");
    };
    const auto before = rereads();
    nav->projectManager()->reReadProject();
    EXPECT_EQ(rereads(), before + 1);
    for (int round = 0; round < 3; ++round) { // LISP at work, which has the project read again
        surroundings.documents.setQuiescent(document, false);
        if (round == 0)
            nav->projectManager()->reReadProject();
        surroundings.documents.setQuiescent(document, true);
    }
    EXPECT_EQ(rereads(), before + 1);
    nav->projectManager()->reReadProject(); // somebody else, later
    EXPECT_EQ(rereads(), before + 2);
}

TEST_F(LifeTest, whatWaitsToBeRecorded_isRecordedAtTheEnd) {
    start();
    const DocumentId document = openDocument(u"C:\\d.dwg");
    surroundings.documents.setQuiescent(document, false);
    nav->projectManager()->openProject(project(u"a"), false);
    RecentProjects list;
    readLastProjects(list);
    EXPECT_TRUE(list.paths.empty());
    stop();
    readLastProjects(list);
    EXPECT_EQ(list.flags, (CStringArray{u"1"}));
}

TEST(ModuleEntryTest, startThatFailsHalfWay_leavesNothingBehind) {
    struct FailingIds final : UniqueIds {
        CString newGuid() override { throw std::runtime_error("no more"); }
    } failing;
    MemoryFiles files;
    ScriptedPlatform host(&files);
    host.ports.os.uniqueIds = &failing;
    ModuleContext context;
    context.platform = &host.ports;
    EXPECT_EQ(ryvModuleEntry(0, &context), static_cast<int>(ModuleResult::failure));
    EXPECT_TRUE(host.commands.commands.empty());
    EXPECT_EQ(host.documents.observerCount() + host.editor.observerCount(), 0u);
    EXPECT_EQ(host.messages.windowCount(), 0u);
    EXPECT_EQ(navState(), nullptr);

    // Another start works, and messages in another order than the usual one do no harm.
    host.ports.os.uniqueIds = &host.uniqueIds;
    for (const int message : {2, 1, 0, 0, 2, 1, 1, 2})
        EXPECT_EQ(ryvModuleEntry(message, &context), static_cast<int>(ModuleResult::success)) << message;
    EXPECT_TRUE(host.commands.commands.empty());
    EXPECT_EQ(ryvModuleEntry(16, nullptr), static_cast<int>(ModuleResult::nothing));
    EXPECT_EQ(ryvModuleEntry(0, nullptr), static_cast<int>(ModuleResult::failure));
}

} // namespace
} // namespace ryv::test
