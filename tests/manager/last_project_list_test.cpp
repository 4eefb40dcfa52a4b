#include "manager/last_project_list.h"

#include "tests/support/fault_files.h"
#include "tests/support/memory_files.h"
#include "tests/support/scripted_platform.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

namespace ryv::test {
namespace {

const CString file = u"C:\\Users\\ann\\Drafta\\LastProj.fil";

std::string utf16(CStringView text, bool bigEndian = false) {
    std::string bytes;
    encodeUtf16(text, bigEndian, bytes);
    return bytes;
}

CString line(CStringView id, CStringView code) {
    return u"(\"" + CString(id) + u"\" \"\" \"\" \"\" \"\" \"" + CString(code) + u"\")\n";
}

class LastProjectList : public ::testing::Test {
protected:
    void put(CStringView text) { memory.put(file, "\xFF\xFE" + utf16(text)); }
    /// The list in one line, "ID code" with commas between; "!" in front when reading fails.
    std::string list() {
        RecentProjects read{{u"old"}, {}};
        std::string result = readLastProjects(read) ? "" : "!";
        EXPECT_EQ(read.paths.size(), read.flags.size());
        for (std::size_t i = 0; i < read.paths.size(); ++i)
            result += (i == 0 ? "" : ",") + toUtf8(read.paths[i]) + " " + toUtf8(read.flags[i]);
        return result;
    }
    /// Lets another host record "b" while the list is locked for a save, so many times.
    void meddle(int times) {
        faults.watch = [this, times, done = 0](FileCall call) mutable {
            if (call == FileCall::lock && done < times)
                put(line(u"b" + toText(++done), u"1"));
        };
    }

    MemoryFiles memory;
    FaultFiles faults{memory};
    ScriptedPlatform platform{&faults};
};

TEST_F(LastProjectList, recordedProject_isWrittenAsLispReadsIt) {
    EXPECT_EQ(list(), "!");
    ASSERT_TRUE(recordProject(u"C:\\Pröj\\A.kqp", last_project::active));
    EXPECT_EQ(*memory.get(file), "\xFF\xFE" + utf16(u"(\"C:/Pröj/A.kqp\" \"\" \"\" \"\" \"\" \"2\")\n"));
    EXPECT_EQ(list(), "C:/Pröj/A.kqp 2");
    EXPECT_EQ(memory.paths(), CStringArray{file});
}

TEST_F(LastProjectList, states_areKeptFromRecordToRecord) {
    using namespace last_project;
    const struct {
        CString id;
        int state;
        const char* list;
    } story[] = {{u"A", open, "A 1"}, {u"B", open, "B 1,A 1"}, {u"a", active, "B 1,A 2"},
        {u"B", active, "B 2,A 1"}, {u"B", active, "B 2,A 1"}, {u"A", closed, "B 2,A 0"},
        {u"d\\C", closed, "d/C 0,B 2,A 0"}, {u"D/c", open, "d/C 1,B 2,A 0"}, {u"b", 0, "d/C 1,B 1,A 0"},
        {u"A", active, "d/C 1,B 1,A 2"}, {u"d\\c", removed, "B 1,A 2"}, {u"d\\c", removed, "B 1,A 2"},
        {u"Z", 5, "Z 1,B 1,A 2"}};
    for (const auto& step : story) {
        EXPECT_TRUE(recordProject(step.id, step.state));
        EXPECT_EQ(list(), step.list);
    }
}

TEST_F(LastProjectList, codesFromElsewhere_areWrittenAsTheyStand) {
    EXPECT_TRUE(recordProject(u"A", u"7"));
    EXPECT_EQ(*memory.get(file), "\xFF\xFE" + utf16(line(u"A", u"7")));
    EXPECT_TRUE(recordProject(u"B", 9));
    EXPECT_EQ(*memory.get(file), "\xFF\xFE" + utf16(line(u"B", u"") + line(u"A", u"1")));
    EXPECT_TRUE(recordProject(u"A", u"X"));
    EXPECT_FALSE(recordProject(u"A", u"1\n"));
    EXPECT_EQ(list(), "B 1");
}

TEST_F(LastProjectList, lines_areReadByTheirQuotes) {
    const std::pair<const char16_t*, const char*> cases[] = {
        {u"(\"A\" \"\" \"\" \"\" \"\" \"0\")\r\n", "A 0"}, {u"(\"A\" \"\" \"\" \"\" \"\" \"X\")", "A 1"},
        {u"(\"A\" \"\" \"\" \"\" \"\" \"12\")", "A 2"}, {u"\"A\"", "A 1"}, {u"\"A\"0", "A 1"},
        {u"\"A\"0\"", "A 0"}, {u"\"2\"", "2 1"}, {u"A\"2", " 1"}, {u"A 2", " 1"}, {u"\n", " 1"}, {u"", ""},
        {u"(\"\" \"\" \"2\")", "\"  2"}, {u"\"\"0", " 1"}};
    for (const auto& [text, expected] : cases) {
        put(text);
        EXPECT_EQ(list(), expected) << shown(text);
    }
}

TEST_F(LastProjectList, longList_isReadAndKeptUpToThirty) {
    CString text;
    for (int i = 1; i <= 40; ++i)
        text += line(toText(i), u"0");
    put(text + line(u"%KQ_PROJ%", u"0")); // what is not read does not count
    RecentProjects read;
    EXPECT_TRUE(readLastProjects(read));
    ASSERT_EQ(read.paths.size(), 30u);
    EXPECT_EQ(read.paths[29], u"30");
    const auto linesAfter = [this](CStringView id) {
        EXPECT_TRUE(recordProject(id, last_project::open));
        const std::string bytes = *memory.get(file);
        return std::count(bytes.begin(), bytes.end(), '\n');
    };
    EXPECT_EQ(linesAfter(u"7"), 30);
    EXPECT_EQ(linesAfter(u"new"), 31);
    EXPECT_EQ(linesAfter(u"newer"), 31);
}

TEST_F(LastProjectList, markOfAnOldList_endsIt) {
    put(line(u"A", u"2") + u"(\"C:/%KQ_PROJ%/B.kqp\" \"0\")\n" + line(u"C", u"1"));
    EXPECT_EQ(list(), "!A 2");
    EXPECT_TRUE(recordProject(u"D", last_project::open));
    EXPECT_EQ(list(), "D 1,A 2");
}

TEST_F(LastProjectList, otherEncodings_areReadAndRewritten) {
    const CString text = line(u"C:/Ä/a.kqp", u"2");
    const std::string cases[] = {utf16(text), "\xFE\xFF" + utf16(text, true), utf16(text, true), toUtf8(text),
        "\xEF\xBB\xBF" + toUtf8(text), "(\"C:/\xC4/a.kqp\" \"\" \"\" \"\" \"\" \"2\")\n"};
    for (const std::string& bytes : cases) {
        memory.put(file, bytes);
        EXPECT_EQ(list(), "C:/Ä/a.kqp 2");
        EXPECT_TRUE(recordProject(u"c:\\ä\\A.kqp", last_project::closed));
        EXPECT_EQ(*memory.get(file), "\xFF\xFE" + utf16(line(u"C:/Ä/a.kqp", u"0")));
    }
}

TEST_F(LastProjectList, whatCannotBeRecorded_leavesTheListAlone) {
    put(line(u"A", u"1"));
    const std::string before = *memory.get(file);
    for (const char16_t* const id : {u"", u"a\"b", u"a\nb", u"a\r", u"\\%KQ_PROJ%\\a.kqp"})
        EXPECT_FALSE(recordProject(id, last_project::open)) << shown(id);
    platform.userFolders.settingsFolder.clear();
    EXPECT_FALSE(recordProject(u"B", last_project::open));
    EXPECT_EQ(list(), "!");
    EXPECT_EQ(*memory.get(file), before);
    EXPECT_EQ(memory.paths(), CStringArray{file});
}

TEST_F(LastProjectList, failingDisk_leavesTheListAlone) {
    put(line(u"A", u"1"));
    const std::string before = *memory.get(file);
    for (const FileCall call :
        {FileCall::open, FileCall::read, FileCall::write, FileCall::sync, FileCall::rename}) {
        faults.arm({FileError::denied, 1, call, call == FileCall::rename}); // it is tried again
        EXPECT_FALSE(recordProject(u"B", last_project::open)) << static_cast<int>(call);
        EXPECT_TRUE(faults.fired()) << static_cast<int>(call);
        EXPECT_EQ(*memory.get(file), before) << static_cast<int>(call);
    }
    faults.arm({FileError::denied, 1, FileCall::read, true});
    EXPECT_EQ(list(), "!");
}

TEST_F(LastProjectList, listWrittenByAnotherHost_isChangedAndNotReplaced) {
    put(line(u"A", u"2"));
    meddle(2);
    EXPECT_TRUE(recordProject(u"C", last_project::active));
    EXPECT_EQ(list(), "C 2,b2 1");
    meddle(1000);
    EXPECT_FALSE(recordProject(u"D", last_project::active));
    EXPECT_EQ(list().substr(0, 1), "b");
}

TEST_F(LastProjectList, olderList_isCopiedAsClosed) {
    platform.documents.open = true;
    EXPECT_TRUE(copyFromOlderList()); // LISP has none
    EXPECT_EQ(list(), "!");
    HostResultBuffer answer;
    answer.addListBegin().addString(u"A").addString(u"").addString(u"C").addListEnd();
    platform.lisp.answer(u"c:kq_get_recent_prj_lst", answer);
    put(line(u"a", u"2") + line(u"B", u"1"));
    EXPECT_FALSE(copyFromOlderList()); // one has no path
    EXPECT_EQ(list(), "C 0,a 0,B 1");
}

} // namespace
} // namespace ryv::test
