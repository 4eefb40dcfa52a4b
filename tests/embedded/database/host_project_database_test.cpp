// The host's own databases: where they are, and how they come to hold what the drawings say.
#include "embedded/database/host_project_database.h"

#include "embedded/os/posix_files.h"
#include "embedded/os/posix_paths.h"
#include "tests/embedded/database/database_fixture.h"
#include "tests/support/fault_files.h"
#include "tests/support/fork.h"
#include "tests/support/scripted_loop.h"
#include "tests/support/scripted_services.h"

#include <sqlite3.h>

namespace drafta::test {
namespace {

using namespace std::chrono_literals;
namespace fs = std::filesystem;

class HostProjectDatabaseTest : public DatabaseFixture {
protected:
    void SetUp() override {
        fs::create_directories(folder.native("profile"));
        userFolders.settingsFolder = folder.module(u"profile") + u"\\";
        files.watch = [this](ryv::test::FileCall call) {
            if (call == ryv::test::FileCall::open) {
                ++opened;
                clock.now += 4ms; // opening and reading take time
            }
        };
        start();
    }

    void start() {
        UpdateParts updates{&files, &loop, &clock,
            [this](CStringView line) { warnings.push_back(withoutFolder(CString(line))); }};
        host.emplace(ProjectDatabaseParts{&paths, &userFolders, updates, options});
        host->updates().setChanged([this](CStringView id) {
            changed.push_back(ryv::toUtf8(id.substr(id.rfind(u'\\') + 1)));
            if (relabels)
                host->PmGetProjectDb(id, path);
        });
    }

    static std::string drawing(const std::string& name) {
        return ryv::test::readBytes(std::string(RYV_TEST_DATA) + "/../drawings/data/" + name + ".dwg");
    }
    void writeProject(const std::string& name, int drawings) {
        std::string text;
        for (int i = 0; i < drawings; ++i) {
            const std::string file = name + std::to_string(i) + ".dwg";
            text += "===x\r\n" + file + "\r\n";
            folder.write(file, drawing("panel"));
        }
        folder.write(name + ".kqp", text);
    }

    bool request(CStringView project) { return host->PmGetProjectDb(folder.module(CString(project)), path); }

    /// The field of a drawing in the folder, in the database that was asked for last.
    std::string value(CStringView drawingName, CStringView column) {
        CString problem;
        const auto database = host->open(path, problem);
        return database ? ask(*database, databaseKey(folder.module(CString(drawingName))), column)
                        : withoutFolder(problem);
    }
    std::string values(CStringView drawingName) {
        std::string all;
        for (const CStringView column : {u"SH", u"SHDWGNAM", u"IEC_I", u"IEC_L"})
            all += value(drawingName, column) + "|";
        return all;
    }

    PathMapper mapper;
    PosixFiles disk{mapper};
    PosixPaths paths{mapper};
    ryv::test::FaultFiles files{disk};
    ryv::test::ScriptedClock clock;
    ryv::test::ScriptedMessageLoop loop{clock};
    ryv::test::ScriptedUserFolders userFolders;
    CString path;
    int opened = 0;
    bool relabels = false;
    std::vector<std::string> changed;
    std::vector<std::string> warnings;
    std::optional<HostProjectDatabase> host;
};

TEST_F(HostProjectDatabaseTest, drawingsOfAProject_afterAWhile_haveTheirValuesInTheDatabase) {
    for (const char* const name : {"text", "paper", "short", "plain", "panel"})
        folder.write(std::string(name) + ".dwg", drawing(name));
    folder.write("damaged.dwg", "no drawing");
    folder.write("Pumps.kqp", "=S\n===d\ntext.dwg\nPAPER.dwg\n=====SUB=A\nshort.dwg\nplain.dwg\nmissing.dwg\n"
                              "damaged.dwg\n=left over\n");
    relabels = true; // which asks again, and must come to an end
    ASSERT_TRUE(request(u"Pumps.kqp"));
    EXPECT_EQ(path, folder.module(u"profile\\databases\\PUMPS.mdb"));
    EXPECT_EQ(values(u"text.dwg"), "no row|no row|no row|no row|"); // at once, and readable
    loop.advance(1s);
    EXPECT_EQ(values(u"text.dwg"), "= Ü-01|= 電-01|= |=  A B |");
    EXPECT_EQ(value(u"paper.dwg", u"SH"), "= 2");
    EXPECT_EQ(value(u"short.dwg", u"SH"), "= 17");
    EXPECT_EQ(values(u"plain.dwg"), "= |= |= |= |");
    EXPECT_EQ(value(u"missing.dwg", u"SH") + value(u"damaged.dwg", u"SH"), "no rowno row");
    EXPECT_EQ(value(u"panel.dwg", u"SH"), "no row"); // not of the project
    EXPECT_EQ(changed, std::vector<std::string>{"Pumps.kqp"});
    EXPECT_EQ(loop.timerCount(), 0u);

    folder.write("plain.dwg", drawing("paper"));
    opened = 0;
    changed.clear();
    request(u"Pumps.kqp");
    host->updates().finish();
    EXPECT_EQ(value(u"plain.dwg", u"SH"), "= 2");
    EXPECT_EQ(changed, std::vector<std::string>{"Pumps.kqp"});
    EXPECT_LE(opened, 5); // the project file, twice each for the two turns, and the one drawing
    EXPECT_EQ(warnings, std::vector<std::string>{});
}

TEST_F(HostProjectDatabaseTest, largeProject_isWorkedOffInSlices_newestRequestFirst) {
    writeProject("A", 40);
    writeProject("B", 4);
    request(u"A.kqp");
    loop.advance(45ms); // two slices
    EXPECT_LE(opened, 10);
    EXPECT_GE(opened, 3);
    request(u"B.kqp");
    loop.advance(200ms);
    EXPECT_EQ(changed, std::vector<std::string>{"B.kqp"});
    EXPECT_TRUE(host->updates().isAtWork());
    loop.advance(1s);
    EXPECT_EQ(changed, (std::vector<std::string>{"B.kqp", "A.kqp"}));
    EXPECT_FALSE(host->updates().isAtWork());
    request(u"A.kqp");
    EXPECT_EQ(values(u"A39.dwg"), "= |= |= |= |");
}

/// Somebody asks again and again: each time for another pass, of which one is enough.
TEST_F(HostProjectDatabaseTest, requestsWhileAtWork_letItGoOnAndCauseOneMorePass) {
    constexpr int drawings = 40;
    writeProject("A", drawings);
    relabels = true;
    for (int i = 0; i < 10; ++i) {
        request(u"A.kqp");
        loop.advance(20ms);
    }
    EXPECT_TRUE(host->updates().isAtWork());
    // A drawing that was looked at already is looked at once more.
    const std::string first = drawing("paper");
    folder.write("A0.dwg", first);
    request(u"A.kqp");
    loop.advance(3s);
    EXPECT_FALSE(host->updates().isAtWork());
    EXPECT_EQ(value(u"A0.dwg", u"SH"), "= 2");
    EXPECT_LE(opened, drawings + 1 + 2 * 2); // all once, the first one twice, the project file in two passes
}

TEST_F(HostProjectDatabaseTest, renamedDrawing_takesItsRowAlong) {
    folder.write("paper.dwg", drawing("paper"));
    folder.write("P.kqp", "paper.dwg\n");
    request(u"P.kqp");
    host->updates().finish();
    const CString id = folder.module(u"P.kqp");
    host->PmRenameStarted(id, folder.module(u"paper.dwg"), 1);
    host->PmRenameCompleted(id, {}); // it failed
    EXPECT_EQ(value(u"paper.dwg", u"SH"), "= 2");
    host->PmRenameCompleted(id, folder.module(u"other.dwg")); // of nothing
    host->PmRenameStarted(id, folder.module(u"paper.dwg"), 1);
    host->PmRenameCompleted(id, folder.module(u"New.dwg"));
    EXPECT_EQ(value(u"new.dwg", u"SH") + value(u"paper.dwg", u"SH"), "= 2no row");
    EXPECT_EQ(value(u"other.dwg", u"SH"), "no row");
}

TEST_F(HostProjectDatabaseTest, foreignDatabase_whereverItIs_isReadAndNotWritten) {
    writeProject("DEMO", 1);
    const std::string demo = recorded("DEMO.mdb");
    for (const bool isBeside : {true, false}) {
        const std::string name = isBeside ? "demo.mdb" : "profile/databases/DEMO.mdb";
        fs::create_directories(folder.native("profile/databases"));
        folder.write(name, demo);
        ASSERT_TRUE(request(u"DEMO.kqp"));
        loop.advance(1s);
        CString problem;
        const auto database = host->open(path, problem);
        ASSERT_TRUE(database) << ryv::toUtf8(problem);
        EXPECT_EQ(ask(*database, u"C:/PROJ/DEMO/PANEL01.DWG", u"SH"), "= 1");
        EXPECT_EQ(folder.read(name), demo);
        fs::remove(folder.native(name));
    }
    EXPECT_EQ(changed, std::vector<std::string>{});
    userFolders.userDirectory = folder.module() + u"\\"; // the project's folder: nothing is foreign there
    ASSERT_TRUE(request(u"DEMO.kqp"));
    ASSERT_TRUE(request(u"DEMO.kqp"));
    loop.advance(1s);
    EXPECT_EQ(path, folder.module(u"DEMO.mdb"));
    EXPECT_EQ(changed, std::vector<std::string>{"DEMO.kqp"});
}

TEST_F(HostProjectDatabaseTest, databaseThatCannotBeWritten_isToldOnce) {
    writeProject("P", 2);
    folder.write("profile/databases", "a file"); // stands for any folder that nothing can be made in
    EXPECT_FALSE(request(u"P.kqp"));
    EXPECT_FALSE(request(u"P.kqp"));
    EXPECT_EQ(warnings, std::vector<std::string>{"P.mdb: unable to open database file"});

    fs::remove(folder.native("profile/databases"));
    writeProject("Q", 2);
    warnings.clear();
    for (int turn = 0; turn < 2; ++turn) {
        ASSERT_TRUE(request(u"Q.kqp")); // can be made, and not be written from now on
        fs::create_directories(folder.native("profile/databases/Q.mdb-journal/x"));
        loop.advance(1s);
        EXPECT_FALSE(host->updates().isAtWork());
    }
    EXPECT_EQ(warnings, std::vector<std::string>{"Q.mdb: disk I/O error"});
    EXPECT_EQ(changed, std::vector<std::string>{});
    EXPECT_TRUE(fs::exists(folder.native("profile/databases/Q.mdb")));
}

TEST_F(HostProjectDatabaseTest, ownDatabaseThatIsDamaged_isMadeAnew) {
    folder.write("paper.dwg", drawing("paper"));
    folder.write("P.kqp", "paper.dwg\n");
    request(u"P.kqp");
    host->updates().finish();
    const std::string name = "profile/databases/P.mdb";
    const std::string whole = folder.read(name);
    ASSERT_GT(whole.size(), 4096u);
    folder.write(name, whole.substr(0, 200) + std::string(whole.size() - 200, '\x5A'));
    request(u"P.kqp");
    host->updates().finish();
    EXPECT_EQ(value(u"paper.dwg", u"SH"), "= 2");
    EXPECT_EQ(warnings, std::vector<std::string>{});
}

TEST_F(HostProjectDatabaseTest, databaseLockedByAnotherProcess_isWrittenWhenItIsFree) {
    writeProject("P", 1);
    request(u"P.kqp");
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(folder.native("profile/databases/P.mdb").c_str(), &other), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(other, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), SQLITE_OK);
    loop.advance(200ms);
    EXPECT_TRUE(host->updates().isAtWork());
    EXPECT_EQ(changed.size(), 0u);
    sqlite3_close(other);
    loop.advance(200ms);
    EXPECT_EQ(changed, std::vector<std::string>{"P.kqp"});
    EXPECT_EQ(warnings, std::vector<std::string>{});
}

TEST_F(HostProjectDatabaseTest, twoProcesses_updatingOneDatabase_loseNothing) {
    writeProject("P", 30);
    const auto update = [this] {
        for (int turn = 0; turn < 15; ++turn) {
            fs::last_write_time(
                folder.native("P" + std::to_string(turn) + ".dwg"), fs::file_time_type::clock::now());
            request(u"P.kqp");
            host->updates().finish();
        }
        return warnings.empty() && changed.size() > 1 ? 0 : 1;
    };
    const pid_t first = ryv::test::startChild(update);
    const pid_t second = ryv::test::startChild(update);
    EXPECT_EQ(ryv::test::exitCode(first), 0);
    EXPECT_EQ(ryv::test::exitCode(second), 0);
    request(u"P.kqp");
    for (int i = 0; i < 30; ++i)
        EXPECT_EQ(value(u"P" + ryv::toText(i) + u".dwg", u"SH"), "= ");
    EXPECT_EQ(fs::directory_iterator(folder.native("profile/databases"))->path().filename(), "P.mdb");
}

} // namespace
} // namespace drafta::test
