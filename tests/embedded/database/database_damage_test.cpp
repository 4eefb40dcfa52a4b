// Damaged databases, and readers that fail on them: always a word about it or the right rows, and soon.
#include "tests/embedded/database/database_fixture.h"
#include "tests/support/random.h"

#include <chrono>

namespace drafta::test {
namespace {

using namespace std::chrono_literals;

class DatabaseDamageTest : public DatabaseFixture {
protected:
    std::string askWith(const std::string& program, ReaderLimits limits) {
        folder.write("a.mdb", recorded("DEMO.mdb"));
        options = {program, limits};
        DatabaseReader scripted(options);
        CString problem;
        const auto database = scripted.open(folder.native("a.mdb"), problem);
        return ask(*database, u"C:/PROJ/DEMO/PANEL01.DWG", u"SH");
    }
};

TEST_F(DatabaseDamageTest, cutFile_everyLength_isToldOrRight) {
    const std::string whole = recorded("DEMO.mdb");
    const struct {
        std::size_t length;
        std::string answer;
    } cases[] = {
        {0, "it is no project database"},
        {100, "its list of tables cannot be read"},
        {4096, "its list of tables cannot be read"},
        {40'960, "it has no table FILETIME"},
        {98'304, "it is damaged: the definition of table FILETIME cannot be read"},
        {122'880, "it is damaged: only 0 of 17 rows can be read"},
        {131'072, "it is damaged: only 0 of 17 rows can be read"},
    };
    for (const auto& each : cases) {
        folder.write("cut.mdb", whole.substr(0, each.length));
        EXPECT_EQ(askFile("cut.mdb", u"C:/PROJ/DEMO/PANEL01.DWG"), "cut.mdb: " + each.answer) << each.length;
    }
    folder.write("cut.mdb", whole.substr(0, whole.size() - 1));
    EXPECT_EQ(askFile("cut.mdb", u"C:/PROJ/DEMO/PANEL13.DWG"), "= 13");

    folder.write("cut.mdb", whole.substr(0, 97'900)); // a loop in the library, or all of its memory
    const auto start = std::chrono::steady_clock::now();
    const std::string answer = askFile("cut.mdb", u"C:/PROJ/DEMO/PANEL01.DWG");
    EXPECT_TRUE(answer == "cut.mdb: it is damaged, and its reader failed" ||
                answer == "cut.mdb: reading it takes too long; it may be damaged")
        << answer;
    EXPECT_EQ(askFile("cut.mdb", u"C:/PROJ/DEMO/PANEL01.DWG"), answer); // and is not tried again
    EXPECT_LT(std::chrono::steady_clock::now() - start, 20s);
}

TEST_F(DatabaseDamageTest, readerThatFails_anyHow_isToldInTime) {
    const std::string columns = "printf 'c\\001\\000\\000\\000\\002\\000\\000\\000SH'";
    const struct {
        std::string script;
        std::string answer;
    } cases[] = {
        {"sleep 60", "reading it takes too long; it may be damaged"},
        {"exec >&-\nsleep 60", "it is damaged, and its reader failed"},
        {"kill -SEGV $$", "it is damaged, and its reader failed"},
        {"exit 3", "it is damaged, and its reader failed"},
        {"exit 0", "it is damaged, and its reader failed"},
        {"echo nonsense", "it is damaged, and its reader failed"},
        {columns, "it is damaged, and its reader failed"},
        {columns + "; printf 'e\\001\\000\\000\\000'", "it is damaged, and its reader failed"},
        {columns + "; printf 'r\\377\\377\\377\\377x'", "it is damaged, and its reader failed"},
        {columns + "; printf 'r\\001\\000\\000\\000\\377e\\001\\000\\000\\000'",
            "it is damaged, and its reader failed"},
        {columns + "; printf 'r\\002\\000\\000\\000a\\001e\\001\\000\\000\\000'",
            "it is damaged, and its reader failed"},
        {"printf 'p\\003\\000\\000\\000why'", "why"},
        {"while :; do echo 0123456789; done", "it holds too much for a project database"},
        {"[ -z \"$MDBOPTS$MDBICONV$MDBPATH$MDB_JET3_CHARSET$HOME\" ] || exit 0; printf "
         "'p\\002\\000\\000\\000ok'",
            "ok"},
    };
    ::setenv("MDBICONV", "latin1", 1);
    for (const auto& each : cases) {
        const auto start = std::chrono::steady_clock::now();
        EXPECT_EQ(askWith(script(each.script), {3s, 1000}), "a.mdb: " + each.answer) << each.script;
        EXPECT_LT(std::chrono::steady_clock::now() - start, 10s) << each.script;
    }
    ::unsetenv("MDBICONV");
    EXPECT_EQ(askWith("/nowhere/reader", {}),
        "a.mdb: the program that reads such files, drafta-mdb-reader, cannot be started");
}

TEST_F(DatabaseDamageTest, randomDamage_isToldOrDoesNotMatter) {
    const std::string whole = recorded("DEMO.mdb");
    ryv::test::Random random(20261121);
    int right = 0;
    int told = 0;
    for (int i = 0; i < 300; ++i) {
        std::string damaged = whole;
        const std::size_t page = random.below(damaged.size() / 4096) * 4096;
        for (std::size_t left = 1 + random.below(64); left != 0; --left)
            damaged[page + (i % 2 == 0 ? random.below(64) : random.below(4096))] =
                static_cast<char>(random.below(256));
        folder.write("d.mdb", damaged);
        DatabaseReader limited({DRAFTA_MDB_READER, {2s, 1 << 20}});
        CString problem;
        const auto database = limited.open(folder.native("d.mdb"), problem);
        const std::string answer =
            database ? ask(*database, u"C:/PROJ/DEMO/PANEL01.DWG", u"SH") : withoutFolder(problem);
        const bool isAnswer = answer == "= 1" || answer == "no row";
        EXPECT_TRUE(isAnswer || answer.starts_with("d.mdb: ")) << i << ": " << answer;
        ++(isAnswer ? right : told);
    }
    EXPECT_GT(right, 100);
    EXPECT_GT(told, 20);
}

} // namespace
} // namespace drafta::test
