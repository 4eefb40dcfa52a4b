// Every kind of change, by watches and by polling.
#include "tests/embedded/monitor/monitor_fixture.h"

namespace ryv::test {
namespace {

enum class Mode { watched, withoutWatches, withoutQueue, remote };

std::string modeName(const testing::TestParamInfo<Mode>& info) {
    switch (info.param) {
    case Mode::watched:
        return "watched";
    case Mode::withoutWatches:
        return "withoutWatches";
    case Mode::withoutQueue:
        return "withoutQueue";
    case Mode::remote:
        break;
    }
    return "remote";
}

class FileChangesTest : public MonitorTest, public testing::WithParamInterface<Mode> {
protected:
    void begin(const CString& name) {
        system.hasQueue = GetParam() != Mode::withoutQueue;
        system.hasWatches = GetParam() != Mode::withoutWatches;
        system.remote = GetParam() == Mode::remote;
        watch(name);
        start();
    }
    bool isPolledOnly() const { return !system.hasQueue || !system.hasWatches; }

    /// What a change makes the monitor tell, of the file that the test is about. A poller sees each file when
    /// its turn comes, so there is no fence for it.
    void expect(const std::string& notices, const std::string& what) {
        if (isPolledOnly()) {
            EXPECT_TRUE(waitFor([&] { return told == notices; })) << what << ": " << told;
            told.clear();
        } else {
            EXPECT_EQ(this->notices(), notices) << what;
        }
    }
};

TEST_P(FileChangesTest, content_whateverWayItIsWritten_changed) {
    writeTo("p/A.kqp");
    std::filesystem::create_hard_link(folder.native("p/A.kqp"), folder.native("other"));
    begin(u"p\\A.kqp");
    const std::string changed = "changed p\\A.kqp; ";
    const std::string renewed = isPolledOnly() ? changed : "deleted p\\A.kqp; created p\\A.kqp; " + changed;
    writeTo("p/A.kqp");
    expect(changed, "in place");
    writeTo("other");
    expect(changed, "through another name");
    for (int i = 0; i < 3; ++i) {
        replace("p/A.kqp");
        expect(changed, "replaced in one step");
    }
    writeTo("p/A.kqp");
    expect(changed, "in place, after it was replaced");
    remove("p/A.kqp");
    writeTo("p/A.kqp");
    expect(renewed, "deleted and created at once");
    writeTo("p/A.kqp");
    expect(changed, "in place, after it was created");
    move("p/A.kqp", "p/A.bak");
    writeTo("p/A.kqp");
    expect(renewed, "moved aside and created at once");
    remove("p/A.kqp");
    replace("p/A.kqp");
    expect(renewed, "deleted and replaced at once");
}

TEST_P(FileChangesTest, name_comesAndGoes_createdAndDeleted) {
    begin(u"p\\A.kqp.FLL");
    writeTo("p/A.kqp.FLL");
    if (isPolledOnly())
        expect("created p\\A.kqp.FLL; ", "created");
    else
        EXPECT_EQ(notices().substr(0, 21), "created p\\A.kqp.FLL; ");
    remove("p/A.kqp.FLL");
    expect("deleted p\\A.kqp.FLL; ", "deleted");
    writeTo("p/A.kqp.FLL");
    expect("created p\\A.kqp.FLL; changed p\\A.kqp.FLL; ", "created again");
    move("p/A.kqp.FLL", "aside");
    expect("deleted p\\A.kqp.FLL; ", "moved away");
    move("aside", "p/A.kqp.FLL");
    expect("created p\\A.kqp.FLL; changed p\\A.kqp.FLL; ", "moved back");
    move("p/A.kqp.FLL", "p/A.old");
    expect("deleted p\\A.kqp.FLL; ", "renamed");
    writeTo("p/a.KQP.fll");
    expect("created p\\A.kqp.FLL; changed p\\A.kqp.FLL; ", "created in another spelling");
    remove("p/a.KQP.fll");
    makeFolder("p/A.kqp.FLL");
    expect("deleted p\\A.kqp.FLL; ", "a folder took its place");
}

TEST_P(FileChangesTest, folder_goesAndComesBack_filesDoToo) {
    makeFolder("q/p");
    makeFolder("r/p");
    writeTo("q/p/A.kqp");
    writeTo("r/p/A.kqp");
    begin(u"q\\p\\A.kqp");
    const std::string deleted = "deleted q\\p\\A.kqp; ";
    const std::string back = "created q\\p\\A.kqp; changed q\\p\\A.kqp; ";
    const std::string changed = "changed q\\p\\A.kqp; ";
    move("q/p", "q/away");
    expect(deleted, "renamed");
    move("q/away", "q/p");
    expect(back, "renamed back");
    move("q", "away");
    expect(deleted, "a folder above it renamed");
    writeTo("away/p/A.kqp");
    move("away", "q");
    expect(back, "and back");
    writeTo("q/p/A.kqp");
    expect(changed, "written after that");
    remove("q");
    expect(deleted, "removed with a folder above it");
    makeFolder("q");
    makeFolder("q/p");
    writeTo("q/p/A.kqp");
    expect(back, "made again");
    move("q", "away");
    move("r", "q");
    expect(changed, "another one took its place");
    writeTo("q/p/A.kqp");
    expect(changed, "written in that");
}

TEST_P(FileChangesTest, link_leadsElsewhereOrItsTargetChanges_told) {
    makeFolder("t/u");
    writeTo("t/one");
    writeTo("t/u/two");
    link("../t/one", "p/A.kqp");
    begin(u"p\\A.kqp");
    const std::string changed = "changed p\\A.kqp; ";
    writeTo("t/one");
    expect(changed, "the target was written");
    replace("t/one");
    expect(changed, "the target was replaced");
    link(folder.native("t/u/two"), "new");
    move("new", "p/A.kqp");
    expect(changed, "the link leads to another file");
    writeTo("t/u/two");
    expect(changed, "which was written");
    move("t/u", "t/v");
    expect("deleted p\\A.kqp; ", "it leads nowhere");
    link("v", "t/u");
    expect("created p\\A.kqp; changed p\\A.kqp; ", "it leads there through another link");
    makeFolder("t/w");
    writeTo("t/w/two");
    link("w", "new");
    move("new", "t/u");
    expect(changed, "a link on the way leads elsewhere");
    remove("p/A.kqp");
    link("A.kqp", "p/A.kqp");
    expect("deleted p\\A.kqp; ", "it leads in a circle");
    remove("p/A.kqp");
    writeTo("p/A.kqp");
    expect("created p\\A.kqp; changed p\\A.kqp; ", "a file took its place");
}

TEST_P(FileChangesTest, protection_changed_toldAlsoOfAFileThatComesBack) {
    writeTo("p/A.kqp");
    begin(u"p\\A.kqp");
    allowWriting("p/A.kqp", false);
    expect("read-only p\\A.kqp; ", "protected");
    allowWriting("p/A.kqp", true);
    expect("writable p\\A.kqp; ", "set free");
    std::filesystem::permissions(folder.native("p/A.kqp"), std::filesystem::perms(0600));
    writeTo("p/A.kqp");
    expect("changed p\\A.kqp; ", "another mode is no news");
    remove("p/A.kqp");
    expect("deleted p\\A.kqp; ", "deleted");
    writeTo("new");
    allowWriting("new", false);
    move("new", "p/A.kqp");
    expect("created p\\A.kqp; changed p\\A.kqp; read-only p\\A.kqp; ", "protected when it came back");
}

TEST_P(FileChangesTest, warning_watchesUsedUp_once) {
    writeTo("p/A.kqp");
    watch(u"p\\B.kqp");
    begin(u"p\\A.kqp");
    watch(u"p\\C.kqp");
    EXPECT_EQ(warnings, isPolledOnly() ? 1 : 0);
}

INSTANTIATE_TEST_SUITE_P(All, FileChangesTest,
    testing::Values(Mode::watched, Mode::withoutWatches, Mode::withoutQueue, Mode::remote), modeName);

} // namespace
} // namespace ryv::test
