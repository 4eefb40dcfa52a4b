#include "manager/startup_loader.h"

#include "tests/manager/manager_fixture.h"

#include <algorithm>
#include <thread>

namespace ryv::test {
namespace {

class StartupTest : public ManagerFixture {
protected:
    void remember(const std::vector<std::pair<std::string, int>>& projects) {
        for (auto each = projects.rbegin(); each != projects.rend(); ++each)
            recordProject(project(each->first), each->second);
    }
};

TEST_F(StartupTest, projectsOfTheLastRun_areOpenedOnce) {
    remember({{"a", last_project::open}, {"b", last_project::active}, {"c", last_project::closed}});
    loadLastProjects(readLastProjects);
    EXPECT_EQ(story(), "open a.kqp, open b.kqp, veto?, setActive b.kqp, actived b.kqp, startUpComplete");
    EXPECT_EQ(lastProjects(), "a.kqp:1 b.kqp:2 c.kqp:0");
    EXPECT_TRUE(manager->InitialOpenComplete());
    loadLastProjects(readLastProjects);
    EXPECT_EQ(story(), "");
}

TEST_F(StartupTest, withoutAnActiveOne_theFirstOpenOneIsActivated) {
    remember({{"a", last_project::open}, {"b", last_project::closed}, {"c", last_project::open}});
    files.erase(path("a.kqp"));
    loadLastProjects(readLastProjects);
    EXPECT_EQ(story(), "open c.kqp, veto?, setActive c.kqp, actived c.kqp, startUpComplete");
}

TEST_F(StartupTest, loadingDuringAQuestion_happensOnce) {
    remember({{"", last_project::open}, {"a", last_project::open}, {"b", last_project::active}});
    files.put(path("b.kqp"), "missing.dwg\n");
    surroundings.ui.meanwhile = [] { loadLastProjects(readLastProjects); };
    loadLastProjects(readLastProjects);
    EXPECT_EQ(
        story(), "open .kqp, open a.kqp, open b.kqp, veto?, setActive b.kqp, actived b.kqp, startUpComplete");
}

TEST_F(StartupTest, listThatCannotBeRead_isTriedAgain) {
    loadLastProjects(readLastProjects);
    EXPECT_FALSE(manager->InitialOpenComplete());
    EXPECT_EQ(story(), "");
    surroundings.documents.open = true;
    // The older list: projects without codes are opened, the first of them active.
    surroundings.lisp.answer(u"c:kq_get_recent_prj_lst",
        HostResultBuffer().addListBegin().addString(project("a")).addString(project("b")).addListEnd());
    loadLastProjects(readRecentProjects);
    EXPECT_EQ(story(), "open a.kqp, veto?, setActive a.kqp, actived a.kqp, open b.kqp, startUpComplete");
}

TEST_F(StartupTest, deferredRequests_ofOtherThreads_areAllRunOnce) {
    surroundings.documents.openDocument(u"C:\\d.dwg");
    constexpr int each = 200;
    const auto add = [this](CStringView project) {
        for (int i = 0; i < each; ++i) {
            DeferredRequest request{DeferredRequest::Kind::recordLastProject, {}};
            request.data.addString(project).addInteger(last_project::closed);
            state.deferredRequests().add(std::move(request));
        }
    };
    std::thread first(add, u"C:\\first.kqp");
    std::thread second(add, u"C:\\second.kqp");
    for (int i = 0; i < 100; ++i)
        state.deferredRequests().flush();
    first.join();
    second.join();
    state.deferredRequests().flush();
    EXPECT_EQ(state.deferredRequests().count(), 0u);
    RecentProjects list;
    readLastProjects(list);
    EXPECT_EQ(std::count(list.flags.begin(), list.flags.end(), u"0"), 2);
    state.deferredRequests().add({DeferredRequest::Kind::rereadInLisp, {}});
    state.deferredRequests().add({DeferredRequest::Kind::rereadInLisp, {}}); // one serves both
    surroundings.documents.activate(DocumentId::none);
    EXPECT_FALSE(state.deferredRequests().flush()); // kept until a document is active
    EXPECT_EQ(state.deferredRequests().count(), 1u);
}

TEST_F(StartupTest, requestsAddedByARunningOne_runInTheSamePass) {
    const DocumentId document = surroundings.documents.openDocument(u"C:\\d.dwg");
    open(project("a"));
    const CString later = project("b");
    surroundings.documents.meanwhile = [&] {
        EXPECT_FALSE(state.deferredRequests().flush()); // a pass is under way
        surroundings.documents.setQuiescent(document, false);
        open(later);
        EXPECT_EQ(state.deferredRequests().count(), 1u);
    };
    state.deferredRequests().add({DeferredRequest::Kind::rereadInLisp, {}});
    EXPECT_TRUE(state.deferredRequests().flush());
    EXPECT_EQ(lastProjects(), "b.kqp:1 a.kqp:1");
}

} // namespace
} // namespace ryv::test
