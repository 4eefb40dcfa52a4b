// Questions to databases that are as they should be, and to files that are none.
#include "tests/embedded/database/database_fixture.h"

#include <set>
#include <sqlite3.h>

namespace drafta::test {
namespace {

class DatabaseReaderTest : public DatabaseFixture {
protected:
    void SetUp() override { folder.write("DEMO.mdb", recorded("DEMO.mdb")); }

    /// Runs statements on a file in the folder; the connection stays open.
    sqlite3* sqlite(const std::string& name, const char* statements) {
        sqlite3* connection = nullptr;
        EXPECT_EQ(sqlite3_open(folder.native(name).c_str(), &connection), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(connection, statements, nullptr, nullptr, nullptr), SQLITE_OK)
            << sqlite3_errmsg(connection);
        return connection;
    }
};

TEST_F(DatabaseReaderTest, jetDatabase_asked_answersWithTheFirstRow) {
    const std::string longest = [] {
        std::string letters;
        for (int i = 0; i < 255; ++i)
            letters += static_cast<char>('A' + i % 26);
        return letters;
    }();
    const struct {
        CStringView drawing, column;
        std::string answer;
    } cases[] = {
        {u"PANEL01.DWG", u"SH", "= 1"},
        {u"PANEL01.DWG", u"shdwgnam", "= E-001"},
        {u"panel01.dwg", u"FTIME", "= 2024-01-01 00:00:00"},
        {u"PANEL03.DWG", u"SH", "= "},
        {u"PANEL04.DWG", u"IEC_L", "= "},
        {u"PANEL04.DWG", u"IEC_I", "= PLANT1"},
        {u"PANEL05.DWG", u"IEC_I", "= WÄRME"},
        {u"PANEL06.DWG", u"SHDWGNAM", "= O'BRIEN \"6\""},
        {u"O'BRIEN.DWG", u"SH", "= 7"},
        {u"SCHÜTZ.DWG", u"SH", "= 8"},
        {u"schütz.dwg", u"SH", "= 8"},
        {u"SUB/MOTOR01.DWG", u"SH", "=  9 "},
        {u"PANEL10.DWG", u"SHDWGNAM", "= " + longest},
        {u"PANEL11.DWG", u"SHDWGNAM", "= 電-11"},
        {u"PANEL11.DWG", u"IEC_I", "= 日本"},
        {u"PANEL11.DWG", u"IEC_L", "= Ж-1"},
        {u"PANEL13.DWG", u"SH", "= 13"},
        {u"TWICE.DWG", u"IEC_I", "= PLANT4"},
        {u"EMPTY.DWG", u"FTIME", "= "},
        {u"GONE.DWG", u"SH", "no row"},
        {u"NOWHERE.DWG", u"SH", "no row"},
        {u"PANEL01.DWG", u"NOTE", "DEMO.mdb: table FILETIME has no column NOTE"},
    };
    CString problem;
    const auto database = reader.open(folder.native("DEMO.mdb"), problem);
    ASSERT_TRUE(database) << ryv::toUtf8(problem);
    for (const auto& each : cases)
        EXPECT_EQ(ask(*database, u"C:/PROJ/DEMO/" + CString(each.drawing), each.column), each.answer)
            << ryv::toUtf8(each.drawing);
    EXPECT_EQ(ask(*database, u"//srv01/proj/demo/pump12.dwg", u"SH"), "= 12");
    EXPECT_EQ(ask(*database, u"", u"SH"), "no row");
    EXPECT_EQ(ask(*database, u"c:/proj/demo/panel01.dwg", u"SH", u"revision"), "= WRONG");
    EXPECT_EQ(ask(*database, u"x", u"SH", u"NOTHING"), "DEMO.mdb: it has no table NOTHING");
    EXPECT_EQ(
        ask(*database, u"x", u"SH", u"FILETIME", u"NAME"), "DEMO.mdb: table FILETIME has no column NAME");
}

TEST_F(DatabaseReaderTest, tenThousandRows_allFieldsOfAll_areRightAfterOneRunOfTheReader) {
    folder.write("LARGE.mdb", recorded("LARGE.mdb"));
    options.program =
        script("echo run >> '" + folder.native("runs") + "'\nexec '" DRAFTA_MDB_READER "' \"$@\"");
    DatabaseReader counted(options);
    CString problem;
    for (int turn = 0; turn < 2; ++turn) { // the second one finds the file as it was
        const auto database = counted.open(folder.native("LARGE.mdb"), problem);
        ASSERT_TRUE(database);
        for (int i = 1; i <= 10'000; ++i) {
            char key[64];
            std::snprintf(key, sizeof key, "C:/PROJ/LARGE/AREA%02d/DWG%05d.DWG", (i - 1) / 500, i);
            const CString drawing = ryv::fromAscii(key);
            ASSERT_EQ(ask(*database, drawing, u"SH"), "= " + std::to_string(i));
            ASSERT_EQ(
                ask(*database, drawing, u"SHDWGNAM"), std::string("= E-") + std::string(key).substr(24, 5));
            ASSERT_EQ(
                ask(*database, drawing, u"IEC_I"), i % 10 == 0 ? "= " : "= PLANT" + std::to_string(i % 7));
            ASSERT_EQ(ask(*database, drawing, u"IEC_L"), "= CAB" + std::to_string(i % 40));
        }
    }
    EXPECT_EQ(folder.read("runs"), "run\n");
    folder.write("LARGE.mdb", recorded("DEMO.mdb"));
    const auto database = counted.open(folder.native("LARGE.mdb"), problem);
    EXPECT_EQ(ask(*database, u"C:/PROJ/DEMO/PANEL01.DWG", u"SH"), "= 1");
    EXPECT_EQ(folder.read("runs"), "run\nrun\n");
}

TEST_F(DatabaseReaderTest, databases_asManyAsAreOpenTogether_areReadOnce) {
    options.program = folder.native("reader"); // which is not there yet
    DatabaseReader counted(options);
    const auto askAgain = [&](int number) {
        const std::string name = std::to_string(number) + ".mdb";
        folder.write(name, recorded("DEMO.mdb"));
        const auto modified = std::filesystem::file_time_type() + std::chrono::hours(number);
        std::filesystem::last_write_time(folder.native(name), modified);
        CString problem;
        return ask(*counted.open(folder.native(name), problem), u"x", u"SH");
    };
    EXPECT_EQ(askAgain(1), "1.mdb: the program that reads such files, drafta-mdb-reader, cannot be started");
    script("echo run >> '" + folder.native("runs") + "'\nprintf 'p\\002\\000\\000\\000ok'");
    for (const int number : {1, 1, 2})
        EXPECT_EQ(askAgain(number), std::to_string(number) + ".mdb: ok");
    EXPECT_EQ(folder.read("runs"), "run\nrun\n");
    for (int number = 1; number <= 33; ++number) // one too many: the first, which was not asked for again
        askAgain(number);
    askAgain(2);
    EXPECT_EQ(folder.read("runs").size(), std::string("run\n").size() * 33);
    askAgain(1);
    EXPECT_EQ(folder.read("runs").size(), std::string("run\n").size() * 34);
}

TEST_F(DatabaseReaderTest, slowRead_isTriedAgainAfterAPause) {
    using namespace std::chrono_literals;
    std::chrono::milliseconds time = 1h;
    options = {
        script("echo run >> '" + folder.native("runs") + "'\nsleep 60"), {200ms}, [&time] { return time; }};
    DatabaseReader slow(options);
    const auto askAgain = [&] {
        CString problem;
        return ask(*slow.open(folder.native("DEMO.mdb"), problem), u"C:/PROJ/DEMO/PANEL01.DWG", u"SH");
    };
    const std::string tooLong = "DEMO.mdb: reading it takes too long; it may be damaged";
    EXPECT_EQ(askAgain(), tooLong);
    time += 1199ms;
    EXPECT_EQ(askAgain(), tooLong);
    EXPECT_EQ(folder.read("runs"), "run\n");
    time += 1ms;
    EXPECT_EQ(askAgain(), tooLong);
    EXPECT_EQ(folder.read("runs"), "run\nrun\n");
    script("printf 'p\\002\\000\\000\\000ok'");
    time += 2399ms; // a pause twice as long
    EXPECT_EQ(askAgain(), tooLong);
    time += 1ms;
    EXPECT_EQ(askAgain(), "DEMO.mdb: ok");
}

TEST(ReadPatienceTest, hangingDisk_costsLittleMoreThanOneFile) {
    using namespace std::chrono_literals;
    std::chrono::milliseconds time = 1h;
    ReadPatience patience(5s, [&time] { return time; });
    std::vector<ReadPatience::File> files(30);
    const auto readAll = [&] {
        const auto start = time;
        for (ReadPatience::File& file : files) {
            const bool isFirst = file.tryAgainAt == 0ms;
            if (!isFirst && !patience.mayRetry(file))
                continue;
            if (!isFirst)
                patience.retry(file);
            time += patience.limitFor(file);
            patience.timedOut(file);
        }
        return time - start;
    };
    EXPECT_EQ(readAll(), 5s + 29 * 500ms);
    EXPECT_EQ(readAll(), 0s);
    std::set<std::size_t> tried;
    for (int turn = 0; turn < 200; ++turn) { // none keeps the others from being tried
        time += 35s;
        EXPECT_LE(readAll(), 5s);
        for (std::size_t i = 0; i < files.size(); ++i)
            if (files[i].pauses > 2)
                tried.insert(i);
    }
    EXPECT_EQ(tried.size(), files.size());
}

TEST_F(DatabaseReaderTest, noDatabase_opened_saysWhatItIs) {
    folder.write("text.mdb", std::string(5000, 'x'));
    folder.write("empty.mdb", "");
    folder.write("short.mdb", recorded("DEMO.mdb").substr(0, 99));
    ::mkdir(folder.native("folder.mdb").c_str(), 0755);
    ASSERT_EQ(::mkfifo(folder.native("pipe.mdb").c_str(), 0644), 0);
    folder.write("huge.mdb", recorded("DEMO.mdb"));
    std::filesystem::resize_file(folder.native("huge.mdb"), (std::uint64_t{256} << 20) + 1);
    EXPECT_EQ(askFile("text.mdb", u"x"), "text.mdb: it is no project database");
    EXPECT_EQ(askFile("empty.mdb", u"x"), "empty.mdb: it is no project database");
    EXPECT_EQ(askFile("short.mdb", u"x"), "short.mdb: it is no project database");
    EXPECT_EQ(askFile("folder.mdb", u"x"), "folder.mdb: is a folder");
    EXPECT_EQ(askFile("pipe.mdb", u"x"), "pipe.mdb: is not a regular file");
    EXPECT_EQ(askFile("huge.mdb", u"x"), "huge.mdb: it is too large to be a project database");
    EXPECT_EQ(askFile("none.mdb", u"x"), "none.mdb: no such file or folder");
}

TEST_F(DatabaseReaderTest, sqliteDatabase_asked_answersLikeAnyOther) {
    sqlite3* const connection = sqlite("q.mdb", "CREATE TABLE FileTime (DwgName TEXT, Sh, \"a\"\"b\" TEXT);"
                                                "INSERT INTO FileTime VALUES ('/A.DWG', 7, 'Ü'), ('/A.DWG', "
                                                "8, ''), (NULL, 9, ''), ('/Ö.DWG', NULL, '');"
                                                "CREATE VIEW V AS SELECT DwgName, Sh FROM FileTime");
    EXPECT_EQ(askFile("q.mdb", u"/a.dwg"), "= 7");
    EXPECT_EQ(askFile("q.mdb", u"/a.dwg", u"A\"B"), "= Ü");
    EXPECT_EQ(askFile("q.mdb", u"/ö.dwg"), "= ");
    EXPECT_EQ(askFile("q.mdb", u""), "no row");
    EXPECT_EQ(askFile("q.mdb", u"/A.DWG", u"SH", u"no\"ne"), "q.mdb: no such table: main.no\"ne");
    EXPECT_TRUE(askFile("q.mdb", u"/A.DWG", u"SH", u"V").find("view") != std::string::npos)
        << askFile("q.mdb", u"/A.DWG", u"SH", u"V"); // whatever it would make the host compute
    EXPECT_EQ(sqlite3_exec(connection, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);
    EXPECT_EQ(askFile("q.mdb", u"/a.dwg"), "q.mdb: database is locked");
    sqlite3_close(connection);
    EXPECT_EQ(askFile("q.mdb", u"/a.dwg"), "= 7");
}

} // namespace
} // namespace drafta::test
