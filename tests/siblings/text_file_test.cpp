// The text-file class, and the paths of LISP.

#include "siblings/stdio_file_ex.h"
#include "siblings/ut_file.h"
#include "tests/support/fault_files.h"
#include "tests/support/memory_files.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

namespace ryv::test {
namespace {

using File = RyvStdioFileEx;

class TextFile : public ::testing::Test {
protected:
    FileStatus write(unsigned flags, CStringView text) {
        File file(files);
        const FileStatus opened = file.Open(path, flags);
        if (!opened.ok())
            return opened;
        const FileStatus written = file.WriteString(text);
        return written.ok() ? file.Close() : written;
    }
    CString read(unsigned flags) {
        File file(files);
        CString record = u"(unread)";
        EXPECT_TRUE(file.Open(path, flags).ok());
        EXPECT_TRUE(file.ReadRecord(record).ok());
        return record;
    }

    const CString path = u"\\T\\record.fll";
    MemoryFiles memory;
    FaultFiles files{memory};
};

} // namespace

TEST_F(TextFile, binaryRecord_isLittleEndianWithoutMark) {
    const CString record = u"\u00DCser\nHOST\n\xD83D\xDE00";
    ASSERT_TRUE(write(File::modeWrite | File::modeCreate | File::typeBinary, record).ok());
    const std::string bytes = memory.get(path).value();
    EXPECT_EQ(bytes.size(), 2 * record.size());
    EXPECT_EQ(bytes.substr(0, 4), std::string("\xDC\0s\0", 4));
    EXPECT_EQ(read(File::modeRead | File::typeBinary), record);
}

TEST_F(TextFile, textRecord_isUtf8AndLongerThanOneBlock) {
    const CString record = CString(5000, u'\u00E9') + u"\r\nend";
    ASSERT_TRUE(write(File::modeWrite | File::modeCreate, record).ok());
    EXPECT_EQ(memory.get(path).value().size(), 10005u);
    EXPECT_EQ(read(File::modeRead), record);
}

TEST_F(TextFile, flags_decideWhatBecomesOfAnOldFile) {
    EXPECT_EQ(write(File::modeWrite, u"x").error, FileError::missing);
    ASSERT_TRUE(write(File::modeWrite | File::modeCreate, u"long text").ok());
    ASSERT_TRUE(write(File::modeWrite | File::modeCreate | File::modeNoTruncate, u"LONG").ok());
    EXPECT_EQ(memory.get(path), "LONG text");
    ASSERT_TRUE(write(File::modeWrite | File::modeCreate, u"new").ok());
    EXPECT_EQ(memory.get(path), "new");
    EXPECT_FALSE(write(File::modeRead, u"y").ok());
    EXPECT_EQ(memory.openHandles(), 0u);
}

TEST_F(TextFile, truncatedBinaryRecord_losesTheHalfUnitOnly) {
    memory.put(path, std::string("a\0b\0c", 5));
    EXPECT_EQ(read(File::modeRead | File::typeBinary), u"ab");
    memory.put(path, "");
    EXPECT_EQ(read(File::modeRead | File::typeBinary), u"");
}

TEST(UtFile, pathsOfLisp_becomePathsOfTheSystem) {
    const struct {
        CString lisp;
        CString system;
    } cases[] = {{u"C:/P/a.dwg", u"C:\\P\\a.dwg"}, {u"C:\\\\P\\\\a.dwg", u"C:\\P\\a.dwg"},
        {u"//srv/share//x", u"\\\\srv\\share\\x"}, {u"/home/u/A.kqp", u"\\home\\u\\A.kqp"}, {u"", u""}};
    for (const auto& each : cases)
        EXPECT_EQ(RyvUtFile::LispToWin(each.lisp), each.system) << toUtf8(each.lisp);
    EXPECT_EQ(RyvUtFile::WinToLisp(u"\\\\srv\\share\\x"), u"//srv/share/x");
    EXPECT_EQ(RyvUtFile::ProjectNameOf(u"\\P\\Gr\u00F6\u00DFe.v2.kqp"), u"GR\u00D6\u00DFE.V2");
}

} // namespace ryv::test
